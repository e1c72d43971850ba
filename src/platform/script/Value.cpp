#include "platform/script/Value.h"

#include "platform/script/ArrayCell.h"
#include "platform/script/Object.h"
#include "platform/script/StringCell.h"

namespace tolvan::script {

Value Value::single(float number) {
    Value value(Type::Single);
    value.as.f = number;
    return value;
}

Value Value::currency(std::int64_t tenThousandths) {
    Value value(Type::Currency);
    value.as.c = tenThousandths;
    return value;
}

Value Value::text(std::string_view bytes) {
    StringCell* cell = StringCell::create(nullptr, bytes.size());
    bytes.copy(cell->bytes(), bytes.size());
    return adopt(cell);
}

void Value::retainPin() const noexcept {
    ++array()->pins;
}

void Value::releaseLast() noexcept {
    if (is(Type::Pin)) {
        ArrayCell* cell = array();
        if (--cell->pins == 0 && cell->references == 0) ArrayCell::destroy(cell);
        return;
    }
    if (is(Type::String))
        StringCell::destroy(string());
    else if (is(Type::Object))
        object()->dispose();
    else if (array()->pins == 0)
        ArrayCell::destroy(array());
}

}  // namespace tolvan::script
