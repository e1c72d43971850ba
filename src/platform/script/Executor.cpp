#include "platform/script/Executor.h"

#include "platform/script/Conversions.h"
#include "platform/script/machine/HostReference.h"
#include "platform/script/machine/Machine.h"
#include "platform/script/syntax/SyntaxError.h"

namespace tolvan::script {

class Executor::Engine {
  public:
    // Does something with the machine and reports how it ended.
    template <class Action>
    bool attempt(Action action) {
        report = ErrorReport{};
        machine.start();
        try {
            action();
            return true;
        } catch (const SyntaxError& error) {
            report.number = static_cast<int>(error.number);
            report.line = static_cast<int>(error.line);
            report.column = static_cast<int>(error.column);
        } catch (const ScriptError& error) {
            report.number = error.number;
            machine.report(report);
            report.description = error.description;
            report.source = error.source;
        } catch (const std::bad_alloc&) {
            report.number = errors::outOfMemory;
            machine.report(report);
        }
        if (report.description.empty()) report.description = errorText(report.number);
        return false;
    }

    Machine machine;
    ErrorReport report;
};

Executor::Executor() : engine_(std::make_unique<Engine>()) {}
Executor::~Executor() = default;

void Executor::reset() {
    engine_->machine.reset();
}

bool Executor::setLanguage(std::string_view name) {
    return lowerCase(name) == "vbscript";
}
std::string_view Executor::language() const {
    return "VBScript";
}

void Executor::setTimeout(int milliseconds) {
    engine_->machine.timeout = milliseconds < 0 ? -1 : milliseconds;
}
int Executor::timeout() const {
    return engine_->machine.timeout;
}

void Executor::setMemoryLimit(std::size_t bytes) {
    engine_->machine.heap().setLimit(bytes);
}
void Executor::setLongestText(std::size_t bytes) {
    engine_->machine.heap().setLongestText(bytes);
}
void Executor::setInterruption(std::function<bool()> goesOn) {
    std::function<void()> look;
    if (goesOn)
        look = [goesOn = std::move(goesOn)] {
            if (!goesOn()) throw ScriptError(errors::timedOut);
        };
    engine_->machine.heap().setDuringWork(std::move(look));
}
std::size_t Executor::memoryUsed() const {
    return engine_->machine.heap().used();
}

void Executor::setTextForm(const TextForm* form) {
    engine_->machine.setTextForm(form);
}

bool Executor::addObject(std::string_view name, HostObject& object, Members members) {
    return engine_->attempt([&] {
        Machine& machine = engine_->machine;
        Value reference = Value::adopt(new HostReference(object, machine.names()));
        machine.symbols().addHost(machine.names().intern(name), object, std::move(reference),
                                  members == Members::AlsoGlobal);
    });
}

bool Executor::addCode(std::string_view module) {
    return engine_->attempt([&] { engine_->machine.addModule(module); });
}

bool Executor::hasProcedure(std::string_view name) const {
    Machine& machine = engine_->machine;
    const Symbol* symbol = machine.symbols().find(machine.names().intern(name));
    return symbol != nullptr && symbol->kind == Symbol::Kind::Procedure;
}

bool Executor::run(std::string_view procedure, std::span<const Value> arguments, Value* result) {
    return engine_->attempt([&] {
        Machine& machine = engine_->machine;
        const Symbol* symbol = machine.symbols().find(machine.names().intern(procedure));
        if (symbol == nullptr || symbol->kind != Symbol::Kind::Procedure) {
            machine.setFailedCall(procedure);
            throw ScriptError(errors::undefinedProcedure);
        }
        Value value = machine.invoke(*symbol->procedure->procedure, nullptr, arguments);
        if (result != nullptr) *result = std::move(value);
    });
}

bool Executor::evaluate(std::string_view expression, Value& result) {
    return engine_->attempt([&] { result = engine_->machine.evaluate(expression); });
}

void Executor::setWatched(bool on) {
    engine_->machine.setWatched(on);
}

void Executor::setMachineCode(const MachineCodeOptions& options) {
    engine_->machine.setMachineCode(options);
}
std::vector<MachineCodeCount> Executor::machineCodeCounts() const {
    const native::CodeStore* code = engine_->machine.machineCode();
    return code == nullptr ? std::vector<MachineCodeCount>() : code->counts();
}

void Executor::setRecording(Recording* recording) {
    if (recording != nullptr) setWatched(true);
    engine_->machine.setRecording(recording);
}

Inspection Executor::inspect() {
    return Inspection(engine_->machine);
}

const ErrorReport& Executor::error() const {
    return engine_->report;
}

std::string Executor::text(const Value& value) {
    Value keep;
    return std::string(toTextView(engine_->machine, value, keep));
}

std::string Executor::typeName(const Value& value) {
    return std::string(typeNameOf(value));
}

}  // namespace tolvan::script
