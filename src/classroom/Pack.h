// Values in bytes, as they go from process to process and into the cache.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tolvan::classroom {

class PackWriter {
  public:
    void number(std::int64_t value) { fixed(&value, sizeof value); }
    void real(double value) { fixed(&value, sizeof value); }
    void text(std::string_view value) {
        number(static_cast<std::int64_t>(value.size()));
        bytes_.append(value);
    }
    // A list: its size, then each item by `write(item)`.
    template <class Items, class Write>
    void list(const Items& items, const Write& write) {
        number(static_cast<std::int64_t>(items.size()));
        for (const auto& item : items) write(item);
    }

    const std::string& bytes() const { return bytes_; }

  private:
    void fixed(const void* value, std::size_t size) { bytes_.append(static_cast<const char*>(value), size); }

    std::string bytes_;
};

// The bytes may come from a process that a program of somebody else ran in: after the first value that is not there,
// all are 0 or empty, and `isWhole` is false.
class PackReader {
  public:
    explicit PackReader(std::string_view bytes) : rest_(bytes) {}

    std::int64_t number();
    double real();
    std::string text();
    template <class Items, class Read>
    void list(Items& items, const Read& read) {
        for (std::int64_t left = number(); left > 0 && isWhole_ && !rest_.empty(); --left) items.push_back(read());
    }

    // One of an enumeration whose last value is `last`; that one for any other number.
    template <class Choice>
    Choice choice(Choice last) {
        const std::int64_t value = number();
        return value >= 0 && value < static_cast<std::int64_t>(last) ? static_cast<Choice>(value) : last;
    }

    bool isWhole() const { return isWhole_; }
    std::string_view rest() const { return rest_; }

  private:
    void fixed(void* value, std::size_t size);

    std::string_view rest_;
    bool isWhole_ = true;
};

}  // namespace tolvan::classroom
