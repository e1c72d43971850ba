// A file of the system, open for reading or writing bytes. The calls go on where a signal interrupts them and where the
// system takes only a part. They return 0, or the system's error number (errno).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace tolvan {

class Descriptor {
  public:
    Descriptor() = default;
    // Owns `number`, which may be -1 for none, and closes it in the end.
    explicit Descriptor(int number) : number_(number) {}
    // Standard input, output or error, which stay open.
    static Descriptor standard(int number);
    Descriptor(Descriptor&& other) noexcept
        : number_(std::exchange(other.number_, -1)), isOwner_(std::exchange(other.isOwner_, true)) {}
    Descriptor& operator=(Descriptor&& other) noexcept;
    ~Descriptor() { close(); }

    bool isOpen() const { return number_ >= 0; }
    int number() const { return number_; }

    // Reads what is there now, at most `size` bytes, to the end of `text`, which does not grow at the end of the file.
    int read(std::string& text, std::size_t size) const;
    // Reads up to the end of the file. EFBIG if there are more than `most` bytes.
    int readAll(std::string& text, std::size_t most) const;
    // Writes all bytes. `withoutReason` if the file takes none and does not say why.
    static constexpr int withoutReason = -1;
    int write(std::string_view bytes) const;
    // Reports what only shows now, such as a full disk. Harmless when nothing is open.
    int close();

  private:
    int number_ = -1;
    bool isOwner_ = true;
};

}  // namespace tolvan
