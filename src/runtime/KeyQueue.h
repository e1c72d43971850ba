// The keys that were pressed while a program runs and has not read them yet.
#pragma once

#include <deque>
#include <string>

class QKeyEvent;

namespace tolvan {

class KeyQueue {
  public:
    // What a program reads for this key, in internal text form: the character that it types, Latin letters and signs as
    // a Latin run ("5", "{a}"), Devanagari letters in font codes; the Marathi names of the arrows, Enter and the space
    // bar; "" for any other key.
    static std::string nameOf(const QKeyEvent& key);

    // Whether the key is one to be read. Keys without a name are none, nor are repetitions of a key that was held down
    // before it could be meant for the program.
    bool add(const QKeyEvent& key);
    // The oldest key, which goes; "" when there is none.
    std::string take();
    // Before a run.
    void clear();

  private:
    std::deque<std::string> keys_;
    int lastPressed_ = 0;  // Qt::Key
};

}  // namespace tolvan
