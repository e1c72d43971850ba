#include "platform/script/Conversions.h"
#include "platform/script/Inspection.h"
#include "platform/script/machine/MachineFrames.h"
#include "platform/script/machine/Recorder.h"

#include <algorithm>

namespace tolvan::script {

namespace {

// After an endless recursion the innermost procedures say enough.
constexpr std::size_t mostKeptLevels = 100;

InspectedVariable inspected(Machine& machine, NameId name, const Value& value) {
    return {std::string(machine.names().spelling(name)), std::string(typeNameOf(value)),
            value.is(Type::Object) ? Value() : value};
}

// A late-bound name that is still Empty is no variable yet.
bool isVariable(const Procedure& procedure, std::size_t reg, const Value& value) {
    return procedure.variableNames[reg] != 0 && !(reg >= procedure.firstLate && value.is(Type::Empty));
}

}  // namespace

// The pc of a frame that waits for a call is the instruction after the call.
int Machine::lineOf(const Frame& frame) const {
    const auto next = static_cast<std::uint32_t>(frame.pc - frame.procedure->code.data());
    return static_cast<int>(frame.procedure->lineAt(next - 1));
}

std::vector<InspectedVariable> Machine::variablesOf(const Frame& frame) {
    std::vector<InspectedVariable> list;
    const Procedure& procedure = *frame.procedure;
    for (std::size_t i = 0; i < procedure.variableNames.size(); ++i) {
        const Value& value = followed(frame.base[i]);
        if (isVariable(procedure, i, value)) list.push_back(inspected(*this, procedure.variableNames[i], value));
    }
    if (frame.generated != nullptr)
        for (const auto& [name, value] : frame.generated->variables) list.push_back(inspected(*this, name, value));
    return list;
}

std::vector<InspectedVariable> Machine::outsideVariables() {
    std::vector<std::pair<NameId, const Value*>> found;
    symbols_->forEachVariable([&](NameId name, const Value& value) { found.emplace_back(name, &value); });
    std::sort(found.begin(), found.end());
    std::vector<InspectedVariable> list;
    list.reserve(found.size());
    for (const auto& [name, value] : found) list.push_back(inspected(*this, name, *value));
    return list;
}

// The procedures that an error is about to end. `line` is that of the innermost one.
void Machine::keepErrorState(int line) {
    trace_.state = std::make_unique<ErrorState>();
    for (std::size_t level = 0; level < std::min(depth_, mostKeptLevels); ++level) {
        const Frame& frame = frames_[depth_ - 1 - level];
        trace_.state->levels.push_back({std::string(names_.spelling(frame.procedure->name)),
                                        level == 0 ? line : lineOf(frame), variablesOf(frame)});
    }
}

Value* Machine::findVariableOf(std::size_t level, NameId name) {
    if (level == depth_) {
        const Symbol* symbol = symbols_->find(name);
        return symbol != nullptr && symbol->kind == Symbol::Kind::Variable ? symbol->variable : nullptr;
    }
    Frame& frame = frames_[depth_ - 1 - level];
    const auto& names = frame.procedure->variableNames;
    const auto place = std::find(names.begin(), names.end(), name);
    if (place != names.end()) return &followed(frame.base[place - names.begin()]);
    if (frame.generated == nullptr) return nullptr;
    const auto made = frame.generated->variables.find(name);
    return made == frame.generated->variables.end() ? nullptr : &made->second;
}

bool Machine::assignVariable(std::size_t level, std::string_view name, std::span<const std::uint32_t> indexes,
                             const Value& value) {
    if (level > depth_ || name.empty() || value.isOneOf(bits(Type::Object, Type::Array))) return false;
    Value* const variable = findVariableOf(level, names_.intern(name));
    if (variable == nullptr) return false;
    ++changes_;
    if (!indexes.empty() && !variable->is(Type::Array)) return false;
    if (recorder_ != nullptr) recorder_->goOn();
    std::vector<Value> places;
    for (const std::uint32_t index : indexes) places.push_back(Value::number(index));
    try {
        const Value assigned = value.is(Type::String) ? text(value.view()) : value;
        Value* const found = indexes.empty() ? nullptr : &element(*variable, places);
        if (recorder_ != nullptr) recorder_->noteAssigned(*variable, found);
        (found != nullptr ? *found : *variable) = assigned;
        return true;
    } catch (const ScriptError&) {
        return false;  // no such element, or no memory
    }
}

// Host's side ---------------------------------------------------------------------------------------------------------

std::size_t Inspection::depth() const {
    const auto& kept = machine_.trace_.state;
    return machine_.depth_ == 0 && kept != nullptr ? kept->levels.size() : machine_.depth_;
}

std::string Inspection::procedure(std::size_t level) const {
    if (level >= depth()) return {};
    if (machine_.depth_ == 0) return machine_.trace_.state->levels[level].procedure;
    return std::string(machine_.names().spelling(machine_.frames_[depth() - 1 - level].procedure->name));
}

int Inspection::line(std::size_t level) const {
    if (level >= depth()) return 0;
    if (machine_.depth_ == 0) return machine_.trace_.state->levels[level].line;
    return machine_.lineOf(machine_.frames_[depth() - 1 - level]);
}

std::vector<InspectedVariable> Inspection::variables(std::size_t level) const {
    if (level == depth()) return machine_.outsideVariables();
    if (level > depth()) return {};
    if (machine_.depth_ == 0) return machine_.trace_.state->levels[level].variables;
    return machine_.variablesOf(machine_.frames_[depth() - 1 - level]);
}

bool Inspection::assign(std::size_t level, std::string_view name, std::span<const std::uint32_t> indexes,
                        const Value& value) {
    return machine_.depth_ != 0 && machine_.assignVariable(level, name, indexes, value);
}

}  // namespace tolvan::script
