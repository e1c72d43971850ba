#include "platform/script/native/UnitCompiler.h"

#include "platform/script/machine/Machine.h"
#include "platform/script/native/TemplateTable.h"

#include <algorithm>
#include <cstddef>

namespace tolvan::script::native {

using namespace asmjit;

namespace {

constexpr std::uint32_t mostRegisters = 200;
constexpr std::size_t mostInstructions = 800;    // translated, each version counted: some 10 ms
constexpr std::size_t mostVersions = 4;          // of one place
constexpr std::size_t versionsWithContents = 2;  // of these: that may tell arrays and texts apart

// Bytes from a pointer to a Value's parts.
constexpr std::int32_t tagOffset = offsetof(Value, tag);
constexpr std::int32_t payloadOffset = offsetof(Value, as);

std::int32_t offsetOf(std::uint32_t reg) {
    return static_cast<std::int32_t>(reg * sizeof(Value));
}

}  // namespace

UnitCompiler::UnitCompiler(const Surroundings& surroundings, const Procedure& procedure, const ProcedureCode& known,
                           Unit& unit)
    : around_(surroundings),
      procedure_(procedure),
      code_(procedure.code.data()),
      shape_(known.shape),
      feedback_(known.feedback),
      unit_(unit),
      wholes_(procedure.registerCount),
      reals_(procedure.registerCount),
      cells_(procedure.registerCount),
      items_(procedure.registerCount),
      isArray_(procedure.registerCount),
      isUsed_(procedure.registerCount),
      isWritten_(procedure.registerCount),
      kinds_(procedure.registerCount, Kind::Any) {
    holder_.init(unit.memory->environment());
    holder_.attach(&cc_);
}

// The whole -----------------------------------------------------------------------------------------------------------

void UnitCompiler::begin() {
    function_ = cc_.addFunc(FuncSignatureT<std::uint64_t, void*, void*>(CallConvId::kHost));
    base_ = cc_.newIntPtr();
    frame_ = cc_.newIntPtr();
    leaving_ = cc_.newIntPtr();
    function_->setArg(0, base_);
    function_->setArg(1, frame_);
    findRegisters();
}

bool UnitCompiler::isInside(std::uint32_t pc) const {
    return !isLoop_ || (pc >= range_.first && pc < range_.end) || pc >= procedure_.coldCode;
}

void UnitCompiler::findRegisters() {
    for (std::uint32_t pc = 0; pc < procedure_.code.size(); pc += wordsOf(code_[pc].op)) {
        if (!isInside(pc)) continue;
        const RegisterUse use = useOf(code_[pc].op);
        forEachRegister(use.reads | use.writes, &code_[pc], [this](std::uint32_t reg) { isUsed_[reg] = true; });
        forEachRegister(use.writes, &code_[pc], [this](std::uint32_t reg) { isWritten_[reg] = true; });
        switch (code_[pc].op) {
            case Op::Index:
            case Op::IndexLet:
            case Op::IndexMany:
                isArray_[code_[pc].b] = true;
                break;
            case Op::PutIndexR:
            case Op::PutIndexK:
            case Op::PutIndexMany:
                isArray_[code_[pc].a] = true;
                break;
            default:
                break;
        }
    }
}

bool UnitCompiler::compileLoop(std::uint32_t head, CodeShape::Range range, Value* window) {
    if (procedure_.registerCount > mostRegisters) return false;
    isLoop_ = true;
    range_ = range;
    window_ = window;
    begin();
    for (std::uint32_t reg = 0; reg < procedure_.registerCount; ++reg) {
        if (!isUsed_[reg]) continue;
        Kind kind = kindOf(window[reg].tag);
        if (isUnboxed(kind) && !shape_.isLive(head, reg)) kind = Kind::Simple;
        if (kind == Kind::Text) kind = Kind::Any;
        if (startsWithItems(reg)) kind = Kind::Items;
        if (kind != Kind::Any) unit_.expected.push_back({reg, kind});
        if (isUnboxed(kind))
            load(reg, kind, payload(reg));
        else if (kind == Kind::Items)
            findItems(reg, true, {});
        else
            kinds_[reg] = kind;
    }
    const Instruction& first = code_[range.first];
    unit_.passes = first.op == Op::Poll ? (&first)[1].word<int*>() : around_.ticks;
    cc_.jmp(place(head));
    return finish();
}

// As interpreted calls do, it empties the variables. There is a version for arguments of the kinds that are there now,
// and one for any.
bool UnitCompiler::compileProcedure(Value* window) {
    if (procedure_.registerCount > mostRegisters) return false;
    window_ = window;
    begin();
    for (std::uint32_t reg = 0; reg < procedure_.variableCount; ++reg) {
        if (reg >= 1 && reg <= procedure_.parameterCount) continue;
        overwrite(reg);
        cc_.mov(tagOfSlot(reg), bits(Type::Empty));
        kinds_[reg] = Kind::Simple;
    }
    unit_.passes = around_.ticks;
    const Label any = place(0);
    for (std::uint32_t reg = 1; reg <= procedure_.parameterCount; ++reg) {
        const Kind kind = kindOf(window[reg].tag);
        if (startsWithItems(reg))
            findItems(reg, window[reg].is(Type::Reference), [this, any](const Gp& tag) {
                cc_.cmp(tag, bits(Type::Array));
                cc_.jne(any);
            });
        if (!isUnboxed(kind) || !isUsed_[reg]) continue;
        cc_.cmp(tagOfSlot(reg), tagOf(kind));
        cc_.jne(any);
        load(reg, kind, payload(reg));
    }
    cc_.jmp(place(0));
    return finish();
}

bool UnitCompiler::finish() {
    write();
    if (translated_ > mostInstructions) return false;
    cc_.endFunc();
    return cc_.finalize() == kErrorOk;
}

void UnitCompiler::write() {
    while (!pending_.empty() || !cold_.empty()) {
        auto& queue = pending_.empty() ? cold_ : pending_;
        Pending one = std::move(queue.front());
        queue.pop_front();
        if (translated_ > mostInstructions) return;
        cc_.bind(one.label);
        pc_ = one.pc;
        kinds_ = std::move(one.kinds);
        isEnded_ = isFork_ = false;
        forgetExits();
        following_ = next();
        usedTemporaries_ = one.temporaries;
        if (one.then) one.then();
        instructions();
    }
}

void UnitCompiler::instructions() {
    while (!isEnded_) {
        if (++translated_ > mostInstructions) return;
        forgetExits();
        usedTemporaries_ = {};
        if (around_.executed != nullptr && !isFork_)
            cc_.inc(x86::qword_ptr(address(around_.executed + static_cast<std::size_t>(at()->op))));
        following_ = next();
        (this->*TemplateTable::of(at()->op))();
        if (!isEnded_) continueAt(following_);
    }
}

// Goes on at `next`, in the version for the kinds that there are.
void UnitCompiler::continueAt(std::uint32_t next) {
    if (!isInside(next)) {
        cc_.jmp(exitAt(next, Exit::Why::Loop));
        return end();
    }
    pc_ = next;
    if (!shape_.isJoin(next) && !isFork_) return;
    isFork_ = false;
    forgetUnneeded(next);
    Version* version = findVersionWithLess(next);
    if (version == nullptr && versions_[next].size() >= mostVersions) {
        boxAll();
        version = findVersion(next);
    }
    if (version == nullptr) version = newVersion(next);
    if (version->isTranslated) {
        cc_.jmp(version->label);
        return end();
    }
    version->isTranslated = true;
    cc_.bind(version->label);
    kinds_ = version->kinds;
}

// Versions ------------------------------------------------------------------------------------------------------------

// Temporaries that are not read any more have no kinds that would tell versions apart.
void UnitCompiler::forgetUnneeded(std::uint32_t pc) {
    for (std::uint32_t reg = procedure_.variableCount; reg < procedure_.registerCount; ++reg)
        if (!shape_.isLive(pc, reg)) kinds_[reg] = isHeld(reg) ? Kind::Any : Kind::Simple;
}

// What is known of contents of the window.
void UnitCompiler::forgetContents() {
    for (Kind& kind : kinds_)
        if (kind == Kind::Items || kind == Kind::Text) kind = Kind::Any;
}

// Where there are versions already, one that knows less of the window is good enough.
UnitCompiler::Version* UnitCompiler::findVersionWithLess(std::uint32_t pc) {
    Version* const version = findVersion(pc);
    if (version != nullptr || versions_[pc].size() < versionsWithContents) return version;
    forgetContents();
    return findVersion(pc);
}

UnitCompiler::Version* UnitCompiler::findVersion(std::uint32_t pc) {
    const auto fits = [](Kind has, Kind wanted) { return has == wanted || (!isUnboxed(has) && wanted == Kind::Any); };
    for (Version& version : versions_[pc])
        if (std::equal(kinds_.begin(), kinds_.end(), version.kinds.begin(), fits)) return &version;
    return nullptr;
}

UnitCompiler::Version* UnitCompiler::newVersion(std::uint32_t pc) {
    return &versions_[pc].emplace_back(Version{kinds_, cc_.newLabel(), false});
}

// Where to jump to go on at `target` with the present kinds.
Label UnitCompiler::place(std::uint32_t target) {
    if (!isInside(target)) return exitAt(target, Exit::Why::Loop);
    const Kinds before = kinds_;
    forgetUnneeded(target);
    Version* version = findVersionWithLess(target);
    if (version == nullptr && versions_[target].size() < mostVersions) {
        version = newVersion(target);
        version->isTranslated = true;
        pending_.push_back({version->label, target, kinds_, {}, {}});
    }
    Label label;
    if (version != nullptr) {
        label = version->label;
    } else {
        label = cc_.newLabel();
        cold_.push_back({label, target, kinds_, {}, [this, target] {
                             isFork_ = true;
                             continueAt(target);
                         }});
    }
    kinds_ = before;
    return label;
}

Label UnitCompiler::later(std::function<void()> then) {
    const Label label = cc_.newLabel();
    pending_.push_back({label, pc_, kinds_, usedTemporaries_, std::move(then)});
    return label;
}

// The instruction in another way, where that is rarely needed.
Label UnitCompiler::forked(std::function<void()> then) {
    const Label label = cc_.newLabel();
    cold_.push_back({label, pc_, kinds_, usedTemporaries_, [this, then = std::move(then)] {
                         isFork_ = true;
                         then();
                         if (!isEnded_) continueAt(following_);
                     }});
    return label;
}

// Code that is rarely needed, and ends by itself.
Label UnitCompiler::aside(std::function<void()> then) {
    const Label label = cc_.newLabel();
    aside(label, std::move(then));
    return label;
}

void UnitCompiler::aside(const Label& label, std::function<void()> then) {
    cold_.push_back({label, pc_, kinds_, usedTemporaries_, [this, then = std::move(then)] {
                         then();
                         end();
                     }});
}

// The interpreter's code does the instruction, at `label`; then it goes on at the other label with what is known now.
void UnitCompiler::helpAside(const Label& label, const Label& back) {
    aside(label, [this, back] {
        callHelper();
        refreshItems(following_);
        cc_.jmp(back);
    });
}

// Leaving -------------------------------------------------------------------------------------------------------------

void UnitCompiler::store(std::uint32_t reg, Kind kind) {
    if (!isWritten_[reg]) return;
    cc_.mov(tagOfSlot(reg), tagOf(kind));
    if (kind == Kind::Double)
        cc_.movsd(payload(reg), real(reg));
    else
        cc_.mov(payload(reg), whole(reg));
}

void UnitCompiler::storeAll(const Kinds& kinds, std::uint32_t pc) {
    for (std::uint32_t reg = 0; reg < kinds.size(); ++reg)
        if (isUnboxed(kinds[reg]) && shape_.isLive(pc, reg)) store(reg, kinds[reg]);
}

void UnitCompiler::boxAll() {
    storeAll(kinds_, pc_);
    for (Kind& kind : kinds_) kind = Kind::Any;
}

void UnitCompiler::writeExit(Exit& exit) {
    storeAll(kinds_, exit.pc);
    cc_.mov(x86::qword_ptr(frame_, offsetof(Frame, pc)), address(code_ + exit.pc));
    cc_.ret(address(&exit));
}

// Stores everything and leaves with the exit in `leaving_`. As no instruction changes anything before its last guard,
// all its exits may share it.
Label UnitCompiler::leave() {
    if (!leave_)
        leave_ = aside([this] {
            storeAll(kinds_, pc_);
            cc_.mov(x86::qword_ptr(frame_, offsetof(Frame, pc)), address(at()));
            cc_.ret(leaving_);
        });
    return *leave_;
}

// Hands the instruction back. `seen`: the tag of a value that nobody expected; or what type the result would have.
Label UnitCompiler::exit(Exit::Why why, std::uint8_t slot, const Gp* seen, std::uint32_t wouldBe) {
    if (why == Exit::Why::Guard && plainExit_) return *plainExit_;
    Exit& made = unit_.exits.emplace_back(Exit{&unit_, pc_, why, slot, wouldBe, 0, nullptr});
    const Label leave = this->leave();
    const auto write = [this, &made, leave] {
        cc_.mov(leaving_, pointer(&made));
        cc_.jmp(leave);
    };
    const Label label = seen == nullptr ? aside(write) : aside([this, &made, write, tag = *seen] {
        cc_.mov(x86::dword_ptr(address(&made.seen)), tag);
        write();
    });
    if (why == Exit::Why::Guard) plainExit_ = label;
    return label;
}

Label UnitCompiler::exitAt(std::uint32_t pc, Exit::Why why) {
    Exit& made = unit_.exits.emplace_back(Exit{&unit_, pc, why, 0, 0, 0, nullptr});
    return aside([this, &made] { writeExit(made); });
}

void UnitCompiler::guard(Condition fails, const Label& otherwise) {
    cc_.j(fails, otherwise);
    if (around_.failCountdown == nullptr) return;
    cc_.dec(x86::dword_ptr(address(around_.failCountdown)));
    cc_.je(otherwise);
}

// Registers -----------------------------------------------------------------------------------------------------------

UnitCompiler::Gp UnitCompiler::whole(std::uint32_t reg) {
    if (!wholes_[reg].isValid()) wholes_[reg] = cc_.newInt32();
    return wholes_[reg];
}
UnitCompiler::Xmm UnitCompiler::real(std::uint32_t reg) {
    if (!reals_[reg].isValid()) reals_[reg] = cc_.newXmmSd();
    return reals_[reg];
}
// For use within one instruction. They are the same ones in each: the time that AsmJit needs grows with their number.
UnitCompiler::Gp UnitCompiler::temporary32() {
    return temporary64().r32();
}
UnitCompiler::Gp UnitCompiler::temporary64() {
    if (usedTemporaries_.wholes == temporaries_.size()) temporaries_.push_back(cc_.newInt64());
    return temporaries_[usedTemporaries_.wholes++];
}
UnitCompiler::Xmm UnitCompiler::temporaryReal() {
    if (usedTemporaries_.reals == realTemporaries_.size()) realTemporaries_.push_back(cc_.newXmmSd());
    return realTemporaries_[usedTemporaries_.reals++];
}

UnitCompiler::Mem UnitCompiler::tagOfSlot(std::uint32_t reg) const {
    return x86::dword_ptr(base_, offsetOf(reg) + tagOffset);
}
UnitCompiler::Mem UnitCompiler::slotOf(std::uint32_t reg) const {
    return x86::ptr(base_, offsetOf(reg));
}
UnitCompiler::Mem UnitCompiler::payload(std::uint32_t reg) const {
    return x86::ptr(base_, offsetOf(reg) + payloadOffset);
}
UnitCompiler::Gp UnitCompiler::fixedAddress(const void* of) {
    const Gp made = temporary64();
    cc_.mov(made, pointer(of));
    return made;
}

// Releases what the window has of a register that is about to get a number.
void UnitCompiler::overwrite(std::uint32_t reg) {
    if (!isHeld(reg)) return;
    kinds_[reg] = Kind::Any;
    const Label back = cc_.newLabel();
    cc_.test(tagOfSlot(reg), Value::heapTypes);
    cc_.jne(aside([this, reg, back] {
        storeAll(kinds_, pc_);  // a Class_Terminate may poll, and its host look at the variables
        const Gp slot = temporary64();
        cc_.lea(slot, slotOf(reg));
        InvokeNode* call = nullptr;
        cc_.invoke(&call, imm(reinterpret_cast<std::uintptr_t>(around_.release)),
                   FuncSignatureT<void, void*>(CallConvId::kHost));
        call->setArg(0, slot);
        // What is released may have a Class_Terminate; the instruction has changed nothing else yet.
        refreshItems(pc_);
        cc_.jmp(back);
    }));
    cc_.bind(back);
    kinds_[reg] = Kind::Simple;
}

void UnitCompiler::setWhole(std::uint32_t reg, Kind kind, const Gp& number) {
    overwrite(reg);
    cc_.mov(whole(reg), number);
    kinds_[reg] = kind;
}

void UnitCompiler::setReal(std::uint32_t reg, const Xmm& number) {
    overwrite(reg);
    cc_.movapd(real(reg), number);
    kinds_[reg] = Kind::Double;
}

void UnitCompiler::load(std::uint32_t reg, Kind kind, const Mem& from) {
    if (kind == Kind::Double)
        cc_.movsd(real(reg), from);
    else
        cc_.mov(whole(reg), from);
    kinds_[reg] = kind;
}

// The types that a value of the instruction may have: those that were seen, or a guess.
std::uint32_t UnitCompiler::expected(std::uint8_t slot, std::uint32_t otherwise) const {
    const std::uint32_t seen = feedback_.seen(pc_, slot);
    return seen != 0 ? seen : otherwise;
}

// Code for a value with one of `tags`. Goes on for one kind of number here, and from `take` on for each other kind;
// false if it goes on for what is no number. `again`: the instruction is then translated anew, else it is done.
bool UnitCompiler::choose(const Gp& tag, std::uint32_t tags, std::uint8_t slot, bool again,
                          const std::function<void(Kind)>& take) {
    std::vector<Kind> kinds;
    for (const Kind kind : {Kind::Integer, Kind::Long, Kind::Double, Kind::Boolean})
        if ((tags & tagOf(kind)) != 0) kinds.push_back(kind);
    const bool hasOthers = (tags & ~unboxedTags) != 0;
    while (kinds.size() > (hasOthers ? 0 : 1)) {
        const Kind kind = kinds.back();
        kinds.pop_back();
        cc_.cmp(tag, tagOf(kind));
        cc_.je(later([this, take, kind, again] {
            isFork_ = true;
            take(kind);
            if (!again) continueAt(following_);
        }));
    }
    if (hasOthers) return false;
    cc_.cmp(tag, tagOf(kinds.front()));
    guard(Condition::kNE, exit(Exit::Why::Kind, slot, &tag));
    take(kinds.front());
    return true;
}

// Brings a number or Boolean from the window; false for what is expected to be anything else.
bool UnitCompiler::unbox(std::uint32_t reg, std::uint8_t slot) {
    if (isUnboxed(kinds_[reg])) return true;
    if (kinds_[reg] == Kind::Text || kinds_[reg] == Kind::Items) return false;
    const std::uint32_t now = window_[reg].tag;
    const bool isVariable = reg < procedure_.variableCount;
    std::uint32_t guess = bits(Type::Integer);
    if ((now & unboxedTags) != 0 || (isVariable && (now & Value::heapTypes) != 0)) guess = now;
    const std::uint32_t tags = expected(slot, guess);
    if ((tags & unboxedTags) == 0) return false;
    const Gp tag = temporary32();
    cc_.mov(tag, tagOfSlot(reg));
    return choose(tag, tags, slot, true, [this, reg](Kind kind) { load(reg, kind, payload(reg)); });
}

bool UnitCompiler::unboxNumbers(std::initializer_list<std::uint32_t> registers) {
    std::uint8_t slot = 0;
    for (const std::uint32_t reg : registers)
        if (!unbox(reg, slot++) || !isNumber(kinds_[reg])) return false;
    return true;
}

}  // namespace tolvan::script::native
