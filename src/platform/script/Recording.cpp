#include "platform/script/Recording.h"

#include "platform/script/ArrayCell.h"
#include "platform/script/Heap.h"
#include "platform/script/StringCell.h"
#include "platform/script/machine/Recorder.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <utility>

namespace tolvan::script {

namespace {

// A power of two.
constexpr std::size_t smallestRing = 64;

// Bytes that a value takes beside itself. Of arrays within arrays only the first levels are counted out.
std::size_t sizeOf(const Value& value, int levels = 3) {
    if (value.is(Type::String)) return sizeof(StringCell) + value.view().size();
    if (!value.is(Type::Array)) return 0;
    const std::span<Value> elements = value.array()->elements();
    std::size_t size = sizeof(ArrayCell) + elements.size_bytes();
    if (levels == 0) return size;
    for (const Value& element : elements)
        if (element.isOneOf(Value::heapTypes)) size += sizeOf(element, levels - 1);
    return size;
}

bool isSame(const Value& one, const Value& other) {
    if (one.tag != other.tag) return false;
    if (one.is(Type::String)) return one.view() == other.view();
    if (one.is(Type::Array)) {
        if (one.as.cell == other.as.cell) return true;
        const std::span<Value> ours = one.array()->elements();
        const std::span<Value> theirs = other.array()->elements();
        return one.array()->rank == other.array()->rank &&
               std::equal(ours.begin(), ours.end(), theirs.begin(), theirs.end(), [](const Value& a, const Value& b) {
                   return a.is(Type::Array) || b.is(Type::Array) ? a.as.cell == b.as.cell : isSame(a, b);
               });
    }
    if (one.isOneOf(bits(Type::Empty, Type::Null))) return true;
    if (one.isOneOf(bits(Type::Double, Type::Date))) return one.as.d == other.as.d;
    return one.is(Type::Currency) ? one.as.c == other.as.c : one.as.i == other.as.i;
}

const Value nobody;

// How many bytes two texts of one length begin with, or end with, that are the same.
std::uint32_t sameStart(std::string_view one, std::string_view other) {
    std::size_t same = 0;
    for (std::size_t block = 4096; block > 0; block /= 16)
        while (same + block <= one.size() && one.substr(same, block) == other.substr(same, block)) same += block;
    return static_cast<std::uint32_t>(same);
}
std::uint32_t sameEnd(std::string_view one, std::string_view other) {
    std::size_t same = 0;
    const auto blockOf = [&same](std::string_view text, std::size_t size) {
        return text.substr(text.size() - same - size, size);
    };
    for (std::size_t block = 4096; block > 0; block /= 16)
        while (same + block <= one.size() && blockOf(one, block) == blockOf(other, block)) same += block;
    return static_cast<std::uint32_t>(same);
}

}  // namespace

Recording::Difference Recording::Difference::between(std::string_view gone, std::string_view now) {
    const std::size_t shorter = std::min(gone.size(), now.size());
    Difference found;
    found.start = sameStart(gone.substr(0, shorter), now.substr(0, shorter));
    const std::size_t left = shorter - found.start;
    found.end = sameEnd(gone.substr(gone.size() - left), now.substr(now.size() - left));
    found.middle = gone.substr(found.start, gone.size() - found.start - found.end);
    return found;
}

Recording::Difference Recording::Difference::readFrom(const Value& kept) {
    Difference read;
    std::memcpy(&read.start, kept.view().data(), sizeof read.start);
    std::memcpy(&read.end, kept.view().data() + sizeof read.start, sizeof read.end);
    read.middle = kept.view().substr(sizeof read.start + sizeof read.end);
    return read;
}

Value Recording::Difference::toKeep() const {
    std::string bytes(sizeof start + sizeof end, '\0');
    std::memcpy(bytes.data(), &start, sizeof start);
    std::memcpy(bytes.data() + sizeof start, &end, sizeof end);
    return Value::text(bytes.append(middle));
}

// No limit: what the script holds is counted by the script's own heap.
class Recording::OwnHeap {
  public:
    OwnHeap() : heap_(Heap::create()) { heap_->setLimit(std::numeric_limits<std::size_t>::max()); }
    OwnHeap(const OwnHeap&) = delete;
    OwnHeap& operator=(const OwnHeap&) = delete;
    ~OwnHeap() { heap_->abandon(); }
    operator Heap&() { return *heap_; }

  private:
    Heap* heap_;
};

Recording::Recording(std::size_t mostRows, std::size_t mostBytes)
    : mostRows_(std::max<std::size_t>(mostRows, 1)),
      mostChanges_(std::max(std::bit_floor(mostBytes / 2 / sizeof(Change)), smallestRing)),
      mostHeld_(mostBytes / 2),
      rows_(smallestRing),
      changes_(smallestRing),
      heap_(std::make_unique<OwnHeap>()) {}

Recording::~Recording() = default;

void Recording::clear() {
    dropChanges(changeEnd_);
    held_ = 0;
    rowBegin_ = rowEnd_ = changeBegin_ = changeEnd_ = closedAt_ = lastOutput_ = position_ = row_ = 0;
    isOpen_ = isWalking_ = false;
    procedures_.assign(1, {});
    lines_.assign(1, {});
    frames_.clear();
    registers_.clear();
    outside_.clear();
}

std::size_t Recording::bytes() const {
    return held_ + changes_.size() * sizeof(Change) + rows_.size() * sizeof(Row);
}

int Recording::line(std::uint64_t row) const {
    const auto& marks = lines_[rowAt(row).procedure];
    const auto next = std::upper_bound(marks.begin(), marks.end(), rowAt(row).pc,
                                       [](std::uint32_t pc, const LineMark& mark) { return pc < mark.pc; });
    return next == marks.begin() ? 0 : static_cast<int>((next - 1)->line);
}

std::uint64_t Recording::outputAfter(std::uint64_t row) const {
    if (row + 1 < rowEnd_) return rowAt(row + 1).output;
    return recorder_ != nullptr && outputCount_ != nullptr ? *outputCount_ : lastOutput_;
}

// Filling -------------------------------------------------------------------------------------------------------------

void Recording::pushHeld(Place place, Value&& value) {
    held_ += sizeOf(value);
    Change& change = push();
    change.number = place.number;
    change.element = place.element;
    change.kind = Kind::Value;
    change.value = std::move(value);
    while (held_ > mostHeld_ && rowEnd_ - rowBegin_ > 1) dropRow();
    if (held_ > mostHeld_) dropChanges(changeEnd_);
}

void Recording::keepDifference(const Value& now) {
    Change& change = changeAt(changeEnd_ - 1);
    if (change.kind != Kind::Value || !change.value.is(Type::String) || !now.is(Type::String)) return;
    const std::string_view gone = change.value.view();
    const Difference difference = Difference::between(gone, now.view());
    if (difference.middle.size() > gone.size() / 2) return;
    held_ -= sizeOf(change.value);
    change.value = difference.toKeep();
    change.kind = Kind::Part;
    held_ += sizeOf(change.value);
}

// Doubles the ring or, where that would be too much, gives up the oldest row.
void Recording::makeRoom() {
    const std::size_t size = changes_.size();
    if (size < mostChanges_) {
        std::vector<Change> larger(size * 2);
        for (std::uint64_t i = changeBegin_; i < changeEnd_; ++i) larger[i & (size * 2 - 1)] = std::move(changeAt(i));
        changes_ = std::move(larger);
        return;
    }
    if (rowEnd_ - rowBegin_ > 1) dropRow();
    if (changeEnd_ - changeBegin_ == size) dropChanges(changeBegin_ + size / 4);
}

void Recording::growRows() {
    std::vector<Row> larger(rows_.size() * 2);
    for (std::uint64_t i = rowBegin_; i < rowEnd_; ++i) larger[i & (larger.size() - 1)] = rowAt(i);
    rows_ = std::move(larger);
}

void Recording::dropRow() {
    dropChanges(rowAt(rowBegin_ + 1).firstChange);
    ++rowBegin_;
}

void Recording::dropChanges(std::uint64_t end) {
    for (; changeBegin_ < end; ++changeBegin_) drop(changeAt(changeBegin_));
}

void Recording::dropHeld(Change& change) {
    held_ -= sizeOf(change.value);
    change.value = Value();
}

bool Recording::giveUp() {
    if (isWalking_ || rowEnd_ - rowBegin_ <= 1) return false;
    for (std::uint64_t half = (rowEnd_ - rowBegin_) / 2; half > 0; --half) dropRow();
    return true;
}

// Walking -------------------------------------------------------------------------------------------------------------

std::uint64_t Recording::changesBegin(std::uint64_t row) const {
    return std::max(rowAt(row).firstChange, changeBegin_);
}

// What happened after the last row was closed is nobody's.
std::uint64_t Recording::changesEnd(std::uint64_t row) const {
    const std::uint64_t end = row + 1 < rowEnd_ ? rowAt(row + 1).firstChange : isOpen_ ? changeEnd_ : closedAt_;
    return std::max(end, changeBegin_);
}

void Recording::goTo(std::uint64_t row) {
    if (rowBegin_ == rowEnd_) return;
    if (!isWalking_ && recorder_ != nullptr) {
        recorder_->capture();
        present_ = frames_;
        position_ = changeEnd_;
        isWalking_ = true;
    }
    row_ = std::clamp(row, rowBegin_, rowEnd_ - 1);
    walkTo(changesEnd(row_));
}

void Recording::walkTo(std::uint64_t change) {
    while (position_ > change) undo(changeAt(--position_));
    while (position_ < change) redo(changeAt(position_++));
}

void Recording::backToPresent() {
    walkTo(changeEnd_);
    frames_ = std::move(present_);
    registers_.clear();
    outside_.clear();
    isWalking_ = false;
}

void Recording::undo(Change& change) {
    switch (change.kind) {
        case Kind::Value:
            return swapValue(change);
        case Kind::Part:
            return swapPart(change);
        case Kind::Growth: {
            Value& text = valueAt({change.number, change.element});
            const auto length = static_cast<std::size_t>(change.value.as.c);
            if (!text.is(Type::String) || text.view().size() < length) {  // of something that is not kept
                change.value = text = Value::text({});
                return;
            }
            change.value = Value::text(text.view().substr(length));
            // Where nobody else holds the text it is cut where it is.
            if (text.string()->references != 1) text = Value::text(text.view());
            text.string()->length = static_cast<std::uint32_t>(length);
            return;
        }
        case Kind::Enter:
            frames_.pop_back();
            return;
        case Kind::Leave:
            frames_.push_back({change.element, change.number, 0});
            return;
    }
}

void Recording::redo(Change& change) {
    switch (change.kind) {
        case Kind::Value:
            return swapValue(change);
        case Kind::Part:
            return swapPart(change);
        case Kind::Growth: {
            Value& text = valueAt({change.number, change.element});
            if (!text.is(Type::String)) text = Value::text({});
            const auto length = static_cast<std::int64_t>(text.view().size());
            appendText(*heap_, text, change.value.view());
            change.value = Value::currency(length);
            return;
        }
        case Kind::Enter:
            frames_.push_back({change.element, change.number, 0});
            return;
        case Kind::Leave:
            frames_.pop_back();
            return;
    }
}

void Recording::swapValue(Change& change) {
    change.value.swap(valueAt({change.number, change.element}));
}

void Recording::swapPart(Change& change) {
    Value& text = valueAt({change.number, change.element});
    const Difference there = Difference::readFrom(change.value);
    if (!text.is(Type::String) || text.view().size() < std::size_t{there.start} + there.end) return;  // not kept
    const std::string_view now = text.view();
    const Difference after{there.start, there.end, now.substr(there.start, now.size() - there.start - there.end)};
    std::string before(now.substr(0, there.start));
    before.append(there.middle).append(now.substr(now.size() - there.end));
    change.value = after.toKeep();
    text = Value::text(before);
}

Value& Recording::valueAt(Place place) {
    auto& values = place.number < outside ? registers_ : outside_;
    const std::size_t index = place.number < outside ? place.number : place.number - outside;
    if (index >= values.size()) values.resize(index + 1);
    Value& value = values[index];
    if (place.element == whole) return value;
    // Where the array itself is not kept its elements are nowhere.
    if (!value.is(Type::Array) || place.element >= value.array()->size) return nowhere_ = Value();
    return unshare(*heap_, value)->items[place.element];
}

const Value& Recording::valueAt(Place place) const {
    const auto& values = place.number < outside ? registers_ : outside_;
    const std::size_t index = place.number < outside ? place.number : place.number - outside;
    if (place.number == noPlace || index >= values.size()) return nobody;
    const Value& value = values[index];
    if (place.element == whole) return value;
    return value.is(Type::Array) && place.element < value.array()->size ? value.array()->items[place.element] : nobody;
}

// In the log and while walking, a reference says the place and not the address.
Recording::Place Recording::decoded(const Value& reference) {
    const auto place = static_cast<std::uint64_t>(reference.as.c);
    return {static_cast<std::uint32_t>(place >> 32U), static_cast<std::uint32_t>(place)};
}

std::size_t Recording::procedureAt(std::size_t level) const {
    return level < frames_.size() ? frames_[frames_.size() - 1 - level].procedure : 0;
}

std::size_t Recording::levelOf(std::size_t procedure) const {
    if (procedure == 0) return depth();
    const auto found = std::find_if(frames_.rbegin(), frames_.rend(),
                                    [procedure](const Call& call) { return call.procedure == procedure; });
    return found == frames_.rend() ? nowhere : static_cast<std::size_t>(found - frames_.rbegin());
}

Recording::Place Recording::placeOf(std::size_t level, std::size_t place) const {
    const auto index = static_cast<std::uint32_t>(place);
    if (level >= frames_.size()) return {outside + index, whole};
    const Place own{frames_[frames_.size() - 1 - level].base + index, whole};
    const Value& value = valueAt(own);
    return value.is(Type::Reference) ? decoded(value) : own;
}

const Value& Recording::value(std::size_t level, std::size_t place) const {
    return valueAt(placeOf(level, place));
}

bool Recording::hasEntered(std::size_t level) const {
    if (level >= frames_.size()) return false;
    const std::uint32_t base = frames_[frames_.size() - 1 - level].base;
    for (std::uint64_t i = changesBegin(row_); i < changesEnd(row_); ++i)
        if (changeAt(i).kind == Kind::Enter && changeAt(i).number == base) return true;
    return false;
}

bool Recording::isChanged(std::size_t level, std::size_t place) const {
    const Place at = placeOf(level, place);
    const Value& now = valueAt(at);
    for (std::uint64_t i = changesBegin(row_); i < changesEnd(row_); ++i) {
        const Change& change = changeAt(i);
        if (change.number != at.number || change.kind >= Kind::Enter) continue;
        if (change.element != at.element) {
            if (at.element == whole && isElementChanged(level, place, change.element)) return true;
            continue;
        }
        if (change.kind == Kind::Growth) {
            if (!now.is(Type::String) || now.view().size() != static_cast<std::size_t>(change.value.as.c)) return true;
        } else if (change.kind == Kind::Part) {
            const Difference part = Difference::readFrom(change.value);
            const std::size_t stayed = std::size_t{part.start} + part.end;
            if (!part.middle.empty() || !now.is(Type::String) || now.view().size() != stayed) return true;
        } else if (!isSame(change.value, now)) {
            return true;
        }
    }
    return place <= procedures_[procedureAt(level)].parameters && !now.is(Type::Empty) && hasEntered(level);
}

// The first change of the row knows what the element was before.
bool Recording::isElementChanged(std::size_t level, std::size_t place, std::uint32_t element) const {
    const Place at = placeOf(level, place);
    if (at.element != whole) return false;
    for (std::uint64_t i = changesBegin(row_); i < changesEnd(row_); ++i) {
        const Change& change = changeAt(i);
        if (change.number != at.number || change.kind >= Kind::Enter) continue;
        if (change.element == whole) return true;
        if (change.element != element) continue;
        const Value& now = valueAt({at.number, element});
        if (change.kind == Kind::Growth)
            return !now.is(Type::String) || now.view().size() != static_cast<std::size_t>(change.value.as.c);
        return !isSame(change.value, now);
    }
    return false;
}

}  // namespace tolvan::script
