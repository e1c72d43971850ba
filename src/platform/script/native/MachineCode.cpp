#include "platform/script/native/MachineCode.h"

#include "platform/script/Builtin.h"
#include "platform/script/StringCell.h"
#include "platform/script/machine/MachineFrames.h"
#include "platform/script/native/TemplateTable.h"
#include "platform/script/native/UnitCompiler.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <exception>

namespace tolvan::script {

namespace {

constexpr std::string_view operationNames[] = {
#define X(name, words) #name,
    TOLVAN_ALL_OPCODES
#undef X
};
constexpr std::size_t operationCount = std::size(operationNames);

constexpr std::size_t numberOf(Op op) {
    return static_cast<std::size_t>(op);
}

}  // namespace

namespace native {

namespace {

constexpr std::size_t mostUnits = 4;  // of one loop
constexpr int mostCompilations = 12;  // of one loop or procedure
constexpr int mostShortRuns = 64;     // until the code is thought to be of no use
constexpr int fewPasses = 8;
// Calls within each other in machine code: they take native stack, at most about 1 KB each.
constexpr std::size_t deepestCalls = 400;
constexpr std::size_t deepestNestedCalls = 10;  // from within an operation

asmjit::JitAllocator::CreateParams separateMappings() {
    asmjit::JitAllocator::CreateParams parameters;
    parameters.options = asmjit::JitAllocatorOptions::kUseDualMapping | asmjit::JitAllocatorOptions::kImmediateRelease;
    return parameters;
}

}  // namespace

CodeMemory::CodeMemory()
    : runtime_([] {
          static const auto parameters = separateMappings();
          return &parameters;
      }()) {}

void* CodeMemory::add(asmjit::CodeHolder& code) {
    void* made = nullptr;
    if (bytes() + code.codeSize() > CodeStore::mostBytes) return nullptr;
    return runtime_.add(&made, &code) == asmjit::kErrorOk ? made : nullptr;
}

void CodeMemory::release(void* code) {
    runtime_.release(code);
}

struct CodeStore::Data {
    Data(Machine& machineOfCode, const MachineCodeOptions& chosen)
        : machine(machineOfCode), options(chosen), countdown(chosen.failEvery) {}

    Machine& machine;
    MachineCodeOptions options;
    std::shared_ptr<CodeMemory> memory = std::make_shared<CodeMemory>();
    Surroundings around;
    Frame* deepestFrame = nullptr;
    std::uint32_t countdown;
    std::array<std::uint64_t, operationCount> executed{};
    std::array<MachineCodeCount, operationCount> counts{};  // but for `executed`
    std::exception_ptr error;
    int running = 0;
    std::vector<std::shared_ptr<Unit>> replaced;  // that may still be running
    bool isFull = false;
    bool hasAsked = false;  // the host at a poll, since the code was entered

    static std::uint64_t step(Machine* machine, const Instruction* at);
    static std::uint64_t tick(Machine* machine, const Instruction* at);
    static std::uint64_t ask(Machine* machine, const Instruction* poll);
    static void release(Value* value) { *value = Value(); }
    static std::uint64_t builtin(Machine* machine, const Instruction* at);
    static std::uint64_t character(Machine* machine, Value* window, std::int32_t place);
    static int compareTexts(const Value* left, const Value* right) { return left->view().compare(right->view()); }
    static std::uint64_t append(Machine* machine, Value* text, const Value* tail);

    ProcedureCode& codeOf(const Procedure& procedure) {
        auto& code = procedure.machineCode.code;
        if (code == nullptr || code->memory != memory) {
            procedure.machineCode.entry = nullptr;
            code = std::make_shared<ProcedureCode>(procedure, memory);
        }
        return *code;
    }
    std::shared_ptr<Unit> compile(const Procedure& procedure, std::uint32_t head, bool isLoop, Value* window);
    Outcome run(Unit& unit, ProcedureCode::Place& place);
    void noteExit(Exit& exit, Unit& entered, ProcedureCode::Place& place, std::int64_t passes);
    void replace(std::shared_ptr<Unit>& unit, std::shared_ptr<Unit> by) {
        if (unit != nullptr) replaced.push_back(std::move(unit));
        unit = std::move(by);
    }
};

std::uint64_t CodeStore::Data::step(Machine* machine, const Instruction* at) {
    machine->top().pc = at;
    Data& data = *machine->machineCode_->data_;
    if (data.options.counts) ++data.counts[numberOf(at->op)].helped;
    try {
        machine->execute<Machine::Mode::OneInstruction>();
        return returned;
    } catch (...) {
        data.error = std::current_exception();
        return failed;
    }
}

std::uint64_t CodeStore::Data::builtin(Machine* machine, const Instruction* at) {
    Data& data = *machine->machineCode_->data_;
    if (data.options.counts) ++data.counts[numberOf(at->op)].helped;
    try {
        machine->callBuiltin(*at[1].word<const Builtin*>(), machine->top().base + at->a, at->b);
        return returned;
    } catch (...) {
        machine->top().pc = at;
        data.error = std::current_exception();
        return failed;
    }
}

std::uint64_t CodeStore::Data::character(Machine* machine, Value* window, std::int32_t place) {
    if (!window[1].is(Type::String) || window[0].isOneOf(bits(Type::Object, Type::Array, Type::Pin))) return failed;
    const std::string_view text = window[1].view();
    if (place < 1 || static_cast<std::size_t>(place) > text.size()) return failed;
    window[0] = machine->character(static_cast<std::uint8_t>(text[static_cast<std::size_t>(place) - 1]));
    window[1] = Value();
    return returned;
}

std::uint64_t CodeStore::Data::tick(Machine* machine, const Instruction* at) {
    try {
        machine->slowTick();
        return returned;
    } catch (...) {
        machine->top().pc = at;
        machine->machineCode_->data_->error = std::current_exception();
        return failed;
    }
}

// The code is left where the script is to stop or to be recorded, where the next poll asks as well, and where the host
// has changed variables.
std::uint64_t CodeStore::Data::ask(Machine* machine, const Instruction* poll) {
    Frame& frame = machine->top();
    const Instruction* question = poll + poll->bc();
    Data& data = *machine->machineCode_->data_;
    data.hasAsked = true;
    frame.pc = question + wordsOf(Op::PollHost);
    try {
        const std::uint32_t changes = machine->changes_;
        Value answer;
        const auto after = machine->pollHost(*question[1].word<const HostMember*>(), answer);
        const bool isAsBefore = after == Machine::AfterPoll::Same && changes == machine->changes_;
        if (answer.isTrue() && isAsBefore && *poll[1].word<const int*>() > 0) return returned;
        frame.base[question->a] = answer;
        return answered;
    } catch (...) {
        frame.pc = question;
        data.error = std::current_exception();
        return failed;
    }
}

std::uint64_t CodeStore::Data::append(Machine* machine, Value* text, const Value* tail) {
    if (!text->is(Type::String) || !tail->is(Type::String)) return failed;
    const StringCell& cell = *text->string();
    const std::size_t length = cell.length + std::size_t{tail->string()->length};
    if (cell.references != 1 || length > cell.capacity || length > machine->heap().longestText()) return failed;
    appendText(machine->heap(), *text, tail->view());
    return returned;
}

CodeStore::CodeStore(Machine& machine, const MachineCodeOptions& options)
    : data_(std::make_unique<Data>(machine, options)) {
    Surroundings& around = data_->around;
    around.machine = &machine;
    around.depth = &machine.depth_;
    around.ticks = &machine.ticks_;
    around.stackEnd = &machine.stackEnd_;
    around.deepestFrame = &data_->deepestFrame;
    if (options.failEvery != 0) around.failCountdown = &data_->countdown;
    if (options.counts) around.executed = data_->executed.data();
    around.step = &Data::step;
    around.tick = &Data::tick;
    around.ask = &Data::ask;
    around.release = &Data::release;
    around.builtin = &Data::builtin;
    around.character = &Data::character;
    around.compareTexts = &Data::compareTexts;
    around.append = &Data::append;
    around.longestText = &machine.heap().longestText();
}

CodeStore::~CodeStore() = default;

bool CodeStore::isAvailable() {
    return true;
}

void CodeStore::throwError() {
    std::rethrow_exception(std::exchange(data_->error, nullptr));
}

std::size_t CodeStore::bytes() const {
    return data_->memory->bytes();
}

std::vector<MachineCodeCount> CodeStore::counts() const {
    std::vector<MachineCodeCount> counts(data_->counts.begin(), data_->counts.end());
    for (std::size_t i = 0; i < operationCount; ++i) {
        counts[i].operation = operationNames[i];
        counts[i].hasTemplate = TemplateTable::has(static_cast<Op>(i));
        counts[i].executed = data_->executed[i];
    }
    return counts;
}

std::shared_ptr<Unit> CodeStore::Data::compile(const Procedure& procedure, std::uint32_t head, bool isLoop,
                                               Value* window) {
    if (isFull) return nullptr;
    ProcedureCode& code = codeOf(procedure);
    const auto range = isLoop ? code.shape.loopAround(head) : std::nullopt;
    // A poll in the middle of a loop is reached by the code from its start.
    const bool isStart = range && (range->first == head || procedure.code[head].op != Op::Poll);
    if (isLoop && !isStart) return nullptr;
    auto unit = std::make_shared<Unit>(memory);
    UnitCompiler compiler(around, procedure, code, *unit);
    if (!(isLoop ? compiler.compileLoop(head, *range, window) : compiler.compileProcedure(window))) return nullptr;
    for (const Exit& exit : unit->exits)
        ++counts[numberOf(procedure.code[exit.pc].op)].made[static_cast<std::size_t>(exit.why)];
    unit->code = memory->add(compiler.code());
    isFull = unit->code == nullptr;
    return isFull ? nullptr : unit;
}

CodeStore::Outcome CodeStore::Data::run(Unit& unit, ProcedureCode::Place& place) {
    const std::size_t room = running == 0 ? deepestCalls : deepestNestedCalls;
    Frame* const outerLimit = deepestFrame;
    Frame* const frames = machine.frames_.get();
    deepestFrame = frames + std::min(machine.depth_ + room, Machine::deepestCalls);
    const std::int64_t before = *unit.passes;
    hasAsked = false;
    ++running;
    const std::uint64_t status = unit.entry()(machine.top().base, &machine.top());
    --running;
    deepestFrame = outerLimit;
    const std::int64_t passes = hasAsked ? fewPasses : before - *unit.passes;
    if (options.failEvery != 0 && countdown - 1 >= options.failEvery) countdown = options.failEvery;
    if (status == failed) return Outcome::Failed;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): it is the address of an Exit
    if (status != returned) noteExit(*reinterpret_cast<Exit*>(status), unit, place, passes);
    return machine.recorder_ != nullptr ? Outcome::OtherLoop : Outcome::GoOn;
}

// Learns from an exit what types there are, and whether the code is of any use.
void CodeStore::Data::noteExit(Exit& exit, Unit& entered, ProcedureCode::Place& place, std::int64_t passes) {
    const Procedure& procedure = *machine.top().procedure;
    if (options.counts) ++counts[numberOf(procedure.code[exit.pc].op)].taken[static_cast<std::size_t>(exit.why)];
    if (exit.why == Exit::Why::Loop || exit.why == Exit::Why::Pause || exit.why == Exit::Why::Changed) {
        entered.shortRuns = 0;
        return;
    }
    ++exit.count;
    // Its next calls come from the interpreter, which has it compiled.
    if (exit.callee != nullptr) exit.callee->machineCode.calls = MachineCodeOptions::never;
    const bool tells = exit.why == Exit::Why::Kind || exit.why == Exit::Why::Growth;
    if (tells) {
        codeOf(procedure).feedback.add(exit.pc, exit.slot, exit.seen);
        if (exit.count >= options.learnAfter) exit.unit->isStale = true;
        // Machine code that calls it then leaves that to the interpreter, which has it compiled.
        const auto& whole = codeOf(procedure).whole;
        if (exit.unit->isStale && !whole.units.empty() && whole.units.front().get() == exit.unit &&
            whole.compilations < mostCompilations) {
            procedure.machineCode.entry = nullptr;
            procedure.machineCode.calls = MachineCodeOptions::never;
        }
    }
    if (passes >= 0 && passes < fewPasses && !tells && options.failEvery == 0) {
        if (++entered.shortRuns > mostShortRuns) place.isRefused = true;
    } else {
        entered.shortRuns = 0;
    }
}

CodeStore::Outcome CodeStore::enterLoop(const Instruction* head) {
    Data& data = *data_;
    if (data.running == 0) data.replaced.clear();
    Frame& frame = data.machine.top();
    const Procedure& procedure = *frame.procedure;
    ProcedureCode& code = data.codeOf(procedure);
    // The poll at the start of a loop is part of the code, as it counts the budget down; a tick has been done already.
    const auto pc = static_cast<std::uint32_t>(head - procedure.code.data()) + (head->op == Op::Tick ? 1 : 0);
    auto place = std::find_if(code.loops.begin(), code.loops.end(), [pc](const auto& one) { return one.head == pc; });
    if (place == code.loops.end()) {
        code.loops.push_back({pc, {}, 0, false});
        place = code.loops.end() - 1;
    }
    const auto forget = [head] { const_cast<Instruction*>(head)->a = 0; };
    if (place->isRefused) {
        forget();
        return Outcome::NotEntered;
    }
    std::shared_ptr<Unit>* stale = nullptr;
    for (auto& unit : place->units) {
        const bool fits = std::all_of(unit->expected.begin(), unit->expected.end(), [&](const Unit::Expected& one) {
            Value& value = frame.base[one.reg];
            if (one.kind == Kind::Simple) return (value.tag & Value::heapTypes) == 0;
            return one.kind == Kind::Items ? followed(value).is(Type::Array) : value.tag == tagOf(one.kind);
        });
        if (!fits) continue;
        if (!unit->isStale || place->compilations >= mostCompilations) return data.run(*unit, *place);
        stale = &unit;
        break;
    }
    const bool mayCompile =
        place->compilations < mostCompilations && (stale != nullptr || place->units.size() < mostUnits);
    if (!mayCompile) {
        forget();
        return Outcome::NotEntered;
    }
    ++place->compilations;
    auto made = data.compile(procedure, pc, true, frame.base);
    if (made == nullptr) {
        place->isRefused = true;
        forget();
        return Outcome::NotEntered;
    }
    if (stale == nullptr) stale = &place->units.emplace_back();
    data.replace(*stale, made);
    return data.run(*made, *place);
}

CodeStore::Outcome CodeStore::enterProcedure() {
    Data& data = *data_;
    if (data.running == 0) data.replaced.clear();
    Frame& frame = data.machine.top();
    const Procedure& procedure = *frame.procedure;
    ProcedureCode& code = data.codeOf(procedure);
    ProcedureCode::Place& place = code.whole;
    CodeOfProcedure& known = procedure.machineCode;
    const bool isMissing = place.units.empty() || place.units.front() == nullptr || place.units.front()->isStale;
    if (!place.isRefused && isMissing && place.compilations < mostCompilations) {
        ++place.compilations;
        auto made = data.compile(procedure, 0, false, frame.base);
        place.isRefused = made == nullptr;
        if (place.units.empty()) place.units.emplace_back();
        if (made != nullptr) data.replace(place.units.front(), made);
        known.entry = made != nullptr ? made->code : known.entry;
    }
    if (place.isRefused || place.units.empty() || place.units.front() == nullptr) {
        known.entry = nullptr;
        known.calls = 0;
        return Outcome::NotEntered;
    }
    return data.run(*place.units.front(), place);
}

}  // namespace native
}  // namespace tolvan::script
