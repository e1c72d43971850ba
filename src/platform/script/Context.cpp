#include "platform/script/Context.h"

#include "platform/script/Object.h"
#include "platform/script/ScriptError.h"

namespace tolvan::script {

namespace {

const TextForm PlainForm;
constexpr std::size_t EmptyText = 256;

}  // namespace

Context::Context() : heap_(Heap::create()), textForm_(&PlainForm) {
    for (std::size_t code = 0; code < EmptyText; ++code) {
        const char byte = static_cast<char>(code);
        characters_[code] = Value::text({&byte, 1});
    }
    characters_[EmptyText] = Value::text({});
}

Context::~Context() {
    heap_->abandon();
}

void Context::setTextForm(const TextForm* form) {
    textForm_ = form != nullptr ? form : &PlainForm;
}

Value Context::text(std::string_view bytes) {
    if (bytes.empty()) return characters_[EmptyText];
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
        if (result.object() == nullptr) throw ScriptError(errors::ObjectNotSet);
        if (depth == LongestDefaultChain || !result.object()->hasDefault()) throw ScriptError(errors::NoSuchMember);
        const Value holder = result;
        result = holder.object()->call(*this, DefaultMember, {});
    }
    return result;
}

}  // namespace tolvan::script
