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

    // Adds a key; false if it is not for the program: it has no name, or it repeats a key that was already held down
    // when the program could not read it yet.
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
