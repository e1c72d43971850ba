#include "platform/script/Context.h"

#include "platform/script/Object.h"
#include "platform/script/ScriptError.h"

namespace tolvan::script {

namespace {

const TextForm plainForm;
constexpr std::size_t emptyText = 256;

}  // namespace

Context::Context() : heap_(Heap::create()), textForm_(&plainForm) {
    for (std::size_t code = 0; code < emptyText; ++code) {
        const char byte = static_cast<char>(code);
        characters_[code] = Value::text({&byte, 1});
    }
    characters_[emptyText] = Value::text({});
}

Context::~Context() {
    heap_->abandon();
}

void Context::setTextForm(const TextForm* form) {
    textForm_ = form != nullptr ? form : &plainForm;
}

Value Context::text(std::string_view bytes) {
    if (bytes.empty()) return characters_[emptyText];
    if (bytes.size() == 1) return character(static_cast<std::uint8_t>(bytes[0]));
    StringCell* cell = StringCell::create(heap_, bytes.size());
    std::memcpy(cell->bytes(), bytes.data(), bytes.size());
    return Value::adopt(cell);
}

Value Context::character(std::uint8_t code) {
    return characters_[code];
}

Value Context::plain(const Value& value) {
    if (!value.is(Type::Object)) return value;
    Value result = value;
    // A default member that gives an object stands for that object's default member.
    for (int depth = 0; result.is(Type::Object); ++depth) {
        if (result.object() == nullptr) throw ScriptError(errors::objectNotSet);
        if (depth == longestDefaultChain || !result.object()->hasDefault()) throw ScriptError(errors::noSuchMember);
        const Value holder = result;
        result = holder.object()->call(*this, defaultMemberName, {});
    }
    return result;
}

}  // namespace tolvan::script
