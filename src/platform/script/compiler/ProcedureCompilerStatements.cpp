#include "platform/script/compiler/ProcedureCompiler.h"

namespace tolvan::script {

ProcedureCompiler::ProcedureCompiler(ModuleScope& module, ProcedureScope& scope, const std::vector<Value>& literals,
                                     Context& context, Procedure& procedure)
    : module_(module), scope_(scope), literals_(literals), context_(context), code_(procedure) {
    procedure.variableCount = static_cast<std::uint32_t>(scope.variables.size());
    procedure.variableNames = scope.variables;
    if (scope.runsSource) procedure.registers = scope.registers;
    procedure.firstLate = scope.firstLate;
    code_.startRegistersAt(procedure.variableCount);
}

void ProcedureCompiler::compileBody(const Block& body, std::uint32_t lastLine) {
    block(body, lastLine);
    mark(lastLine);
    code_.emit(Op::Return);
    emitColdCode();
}

void ProcedureCompiler::compileExpression(const Expr& expression) {
    mark(expression.line);
    const Temporaries temporaries(code_);
    const std::uint32_t value = code_.takeRegisters();
    into(expression, value);
    code_.emit(Op::Take, 0, value);
    code_.emit(Op::Return);
    code_.markColdCode();
}

void ProcedureCompiler::block(const Block& body, std::uint32_t endLine) {
    for (const Stmt* one = body.first; one != nullptr; one = one->next)
        if (!isIdlePoll(*one, endLine)) statement(*one);
}

void ProcedureCompiler::statement(const Stmt& statement) {
    mark(statement.line);
    switch (statement.kind) {
        case StmtKind::Assign:
            return assign(static_cast<const AssignStmt&>(statement));
        case StmtKind::Call:
            return callStatement(static_cast<const CallStmt&>(statement));
        case StmtKind::Dim:
            return dim(static_cast<const DimStmt&>(statement));
        case StmtKind::ReDim:
            return reDim(static_cast<const ReDimStmt&>(statement));
        case StmtKind::Erase:
            return erase(static_cast<const EraseStmt&>(statement));
        case StmtKind::If:
            return ifStatement(static_cast<const IfStmt&>(statement));
        case StmtKind::Select:
            return select(static_cast<const SelectStmt&>(statement));
        case StmtKind::For:
            return forLoop(static_cast<const ForStmt&>(statement));
        case StmtKind::ForEach:
            return forEach(static_cast<const ForEachStmt&>(statement));
        case StmtKind::Loop:
            return loop(static_cast<const LoopStmt&>(statement));
        case StmtKind::With:
            return with(static_cast<const WithStmt&>(statement));
        case StmtKind::Exit:
            return exit(static_cast<const ExitStmt&>(statement));
        case StmtKind::OnError:
            code_.emit(Op::OnError, static_cast<const OnErrorStmt&>(statement).resumeNext ? 1 : 0);
            return;
        case StmtKind::Const:
        case StmtKind::Stop:
            return;
    }
}

// Declarations --------------------------------------------------------------------------------------------------------

void ProcedureCompiler::dim(const DimStmt& statement) {
    for (const Variable& variable : statement.variables) {
        if (!variable.isArray) continue;
        const Temporaries temporaries(code_);
        const CodePlace codePlace(code_, variable.columns);
        makeArray(variable, place(bind(variable.name)));
    }
}

void ProcedureCompiler::makeArray(const Variable& variable, std::uint32_t placeRegister) {
    const std::uint32_t first = evaluateInOrder(variable.bounds);
    code_.emit(Op::MakeArray, placeRegister, first, static_cast<std::uint32_t>(variable.bounds.size()));
}

void ProcedureCompiler::reDim(const ReDimStmt& statement) {
    for (const ReDimStmt::Target& target : statement.targets) {
        const Temporaries temporaries(code_);
        const CodePlace codePlace(code_, placeIn(*target.array));
        const bool isVariable = target.array->kind == ExprKind::Name && bind(target.array->name).mayBeVariable();
        if (!isVariable && target.array->kind == ExprKind::Name) {
            const bool isUndefined = bind(target.array->name).kind == Binding::Kind::Undefined;
            raise(isUndefined ? errors::undefinedVariable : errors::illegalAssignment, target.array->name);
            continue;
        }
        const std::uint32_t first = evaluateInOrder(target.bounds);
        const std::uint32_t array = placeOf(*target.array);
        code_.emitWithWord(Op::ReDim, array, first, static_cast<std::uint32_t>(target.bounds.size()),
                           std::uint32_t{statement.preserve});
    }
}

void ProcedureCompiler::erase(const EraseStmt& statement) {
    const Temporaries temporaries(code_);
    const CodePlace codePlace(code_, placeIn(*statement.array));
    code_.emit(Op::Erase, placeOf(*statement.array));
}

// Branches ------------------------------------------------------------------------------------------------------------

void ProcedureCompiler::ifStatement(const IfStmt& statement) {
    const CallStmt* otherwise = nullptr;
    if (const HostMember* polled = pollOf(statement, otherwise)) return poll(polled, *otherwise);
    Label& end = newLabel();
    for (const IfStmt::Branch& branch : statement.branches) {
        if (branch.condition == nullptr) {
            block(branch.body, endsIdly);
            break;
        }
        const bool isLast = &branch == &statement.branches.back();
        Label& next = newLabel();
        if (&branch != &statement.branches.front()) mark(branch.line);
        condition(*branch.condition, isLast ? end : next, false);
        block(branch.body, endsIdly);
        if (isLast) break;
        leaveBlock(end);
        bindLabel(next);
    }
    bindLabel(end);
}

void ProcedureCompiler::select(const SelectStmt& statement) {
    const Temporaries temporaries(code_);
    const std::uint32_t subject = code_.takeRegisters();
    {
        const CodePlace codePlace(code_, placeIn(*statement.subject));
        into(*statement.subject, subject);
        code_.emit(Op::LetTake, subject, subject);
    }
    Value literal;
    const bool isLiteral = literalOf(*statement.subject, literal);
    Label& end = newLabel();
    leaveAfterError(end);
    for (const SelectStmt::Case& clause : statement.cases) {
        mark(clause.line);
        Label& body = newLabel();
        Label& next = newLabel();
        for (const Expr* value : clause.values) {
            const Temporaries ofValue(code_);
            const CodePlace codePlace(code_, placeIn(*value));
            Operand right = operand(*value);
            if (isLiteral && right.isConstant) right = {false, inRegister(right)};
            code_.jumpWithWord(right.isConstant ? Op::JumpIfEqualRK : Op::JumpIfEqualRR, subject, right.index, body);
        }
        if (!clause.values.empty()) code_.jump(Op::Jump, 0, next);
        bindLabel(body);
        block(clause.body, endsIdly);
        leaveBlock(end);
        bindLabel(next);
    }
    bindLabel(end);
}

// After the first line of a statement with a body: where errors are survived, a first line that failed does not lead
// into the body, but to the end.
void ProcedureCompiler::leaveAfterError(Label& end) {
    if (!scope_.handlesErrors) return;
    Label& body = newLabel();
    code_.jump(Op::Jump, 0, body);
    leaveBlock(end);
    code_.bind(body);
}

// The jump at the end of a block is marked as a statement of its own: under On Error Resume Next, execution goes on
// with it after an error in the last statement of the block, and not with the next branch.
void ProcedureCompiler::leaveBlock(Label& end) {
    mark(line_);
    code_.jump(Op::Jump, 0, end);
}

// Loops ---------------------------------------------------------------------------------------------------------------

// Where the loop variable is no plain register (it is global, a field or a reference) the loop counts in a register of
// its own, which is copied to the variable before each pass and from it after the pass.
void ProcedureCompiler::forLoop(const ForStmt& statement) {
    const Temporaries temporaries(code_);
    const NameId name = statement.variable->name;
    const Binding binding = bind(name);
    if (!binding.mayBeVariable())
        return raise(binding.kind == Binding::Kind::Undefined ? errors::undefinedVariable : errors::illegalAssignment,
                     name);
    const bool isRegister = binding.kind == Binding::Kind::Register;
    const std::uint32_t counter = isRegister ? binding.index : code_.takeRegisters();
    const std::uint32_t limit = code_.takeRegisters(3);
    const std::uint32_t step = limit + 1;
    // The start is assigned last: limit and step may use the variable's old value.
    const std::uint32_t from = limit + 2;
    into(*statement.from, from);
    into(*statement.to, limit);
    const Columns head{placeIn(*statement.variable).start,
                       placeIn(statement.step != nullptr ? *statement.step : *statement.to).end};
    Value stepValue = Value::integer(1);
    const bool isFixed = statement.step == nullptr || literalOf(*statement.step, stepValue);
    if (statement.step != nullptr)
        into(*statement.step, step);
    else
        loadConstant(stepValue, step);

    const auto handOver = [&] {
        if (isRegister) return;
        const Temporaries ofCopy(code_);
        const std::uint32_t copy = code_.takeRegisters();
        code_.emit(Op::Copy, copy, counter);
        store(binding, copy, false);
    };
    const bool byOne = isFixed && stepValue.is(Type::Integer) && stepValue.as.i == 1;
    Label& body = newLabel();
    Label& exit = newLabel();
    Label& finished = newLabel();
    {
        const CodePlace codePlace(code_, head);
        code_.jumpWithWord(Op::ForPrepare, counter, limit, finished);
    }
    leaveAfterError(exit);
    bindLabel(body);
    if (!startsWithPoll(statement.body)) code_.emit(Op::Tick);
    handOver();
    loops_.push_back({ExitKind::For, &exit});
    block(statement.body);
    loops_.pop_back();
    mark(statement.line);
    if (!isRegister) nameInto(*statement.variable, counter);
    const CodePlace codePlace(code_, head);
    if (byOne && code_.isAtPoll(body))
        code_.loopWithPoll(Op::ForNextOnePoll, counter, limit, body);
    else
        code_.jumpWithWord(byOne ? Op::ForNextOne : Op::ForNext, counter, limit, body);
    bindLabel(finished);
    handOver();
    bindLabel(exit);
}

void ProcedureCompiler::forEach(const ForEachStmt& statement) {
    const Temporaries temporaries(code_);
    const Binding binding = bind(statement.variable->name);
    if (!binding.mayBeVariable())
        return raise(binding.kind == Binding::Kind::Undefined ? errors::undefinedVariable : errors::illegalAssignment,
                     binding.name);
    const std::uint32_t state = code_.takeRegisters(2);
    const std::uint32_t element = code_.takeRegisters();
    {
        const CodePlace codePlace(code_, placeIn(*statement.group));
        into(*statement.group, element);
        code_.emit(Op::EachPrepare, state, element);
    }
    code_.emit(Op::Clear, element);
    Label& test = newLabel();
    Label& body = newLabel();
    Label& exit = newLabel();
    leaveAfterError(exit);
    code_.jump(Op::Jump, 0, test);
    bindLabel(body);
    if (binding.kind == Binding::Kind::Register)
        code_.emit(Op::Take, binding.index, element);
    else
        store(binding, element, false);
    if (!startsWithPoll(statement.body)) code_.emit(Op::Tick);
    loops_.push_back({ExitKind::For, &exit});
    block(statement.body);
    loops_.pop_back();
    bindLabel(test);
    mark(statement.line);
    code_.jumpWithWord(Op::EachNext, state, element, body);
    bindLabel(exit);
    code_.emit(Op::Clear, state);
}

void ProcedureCompiler::loop(const LoopStmt& statement) {
    if (statement.test == LoopStmt::Test::Before && scope_.handlesErrors) return loopInTextOrder(statement);
    Label& test = newLabel();
    Label& body = newLabel();
    Label& exit = newLabel();
    if (statement.test == LoopStmt::Test::Before) code_.jump(Op::Jump, 0, test);
    bindLabel(body);
    if (!startsWithPoll(statement.body)) code_.emit(Op::Tick);
    if (statement.isDo) loops_.push_back({ExitKind::Do, &exit});
    block(statement.body);
    if (statement.isDo) loops_.pop_back();
    if (statement.test == LoopStmt::Test::Before) bindLabel(test);
    mark(statement.testLine);
    if (statement.test == LoopStmt::Test::Never)
        code_.jump(Op::Jump, 0, body);
    else
        condition(*statement.condition, body, !statement.isUntil);
    bindLabel(exit);
}

// Under On Error Resume Next, an error in the condition goes on with the next statement of the code: so the test has to
// stand where it stands in the source, before the body.
void ProcedureCompiler::loopInTextOrder(const LoopStmt& statement) {
    Label& test = newLabel();
    Label& exit = newLabel();
    bindLabel(test);
    mark(statement.testLine);
    condition(*statement.condition, exit, statement.isUntil);
    if (statement.isDo) loops_.push_back({ExitKind::Do, &exit});
    block(statement.body);
    if (statement.isDo) loops_.pop_back();
    mark(line_);
    // At the end of the body, since an error in the condition would skip it there.
    if (!startsWithPoll(statement.body)) code_.emit(Op::Tick);
    code_.jump(Op::Jump, 0, test);
    bindLabel(exit);
}

void ProcedureCompiler::with(const WithStmt& statement) {
    const Temporaries temporaries(code_);
    const std::uint32_t object = code_.takeRegisters();
    // What an earlier statement left there is not its object, should the first line fail.
    code_.emit(Op::Clear, object);
    {
        const CodePlace codePlace(code_, placeIn(*statement.object));
        into(*statement.object, object);
        code_.emit(Op::SetTake, object, object);
    }
    const std::uint32_t outer = withRegister_;
    withRegister_ = object;
    block(statement.body);
    withRegister_ = outer;
    mark(line_);
    code_.emit(Op::Clear, object);
}

void ProcedureCompiler::exit(const ExitStmt& statement) {
    if (statement.what != ExitKind::Do && statement.what != ExitKind::For) {
        code_.emit(Op::ClearError);
        code_.emit(Op::Return);
        return;
    }
    for (auto innermost = loops_.rbegin(); innermost != loops_.rend(); ++innermost) {
        if (innermost->kind != statement.what) continue;
        code_.jump(Op::Jump, 0, *innermost->exit);
        return;
    }
}

// Polls ---------------------------------------------------------------------------------------------------------------

// The member that a condition polls: "host.goOn" or "goOn", without arguments; or null.
const HostMember* ProcedureCompiler::polledMember(const Expr& condition) {
    const Expr* asked = &condition;
    while (asked->kind == ExprKind::Group || (asked->kind == ExprKind::Call && asked->arguments.empty()))
        asked = asked->left;
    const HostMember* member = nullptr;
    if (asked->kind == ExprKind::Member) {
        auto* host = const_cast<HostObject*>(hostObject(*asked->left));
        if (host == nullptr) return nullptr;
        const int number = host->findMember(module_.names().spelling(asked->name));
        if (number == HostObject::noMember) return nullptr;
        member = module_.engine().hostMember(*host, number, asked->name);
    } else if (asked->kind == ExprKind::Name) {
        const Binding binding = bind(asked->name);
        if (binding.kind == Binding::Kind::HostMember) member = binding.symbol->member;
    }
    if (member == nullptr || member->object->pollBudget(member->member) == nullptr) return nullptr;
    return member;
}

// "If Not goOn Then call": the polled member and the call; or null.
const HostMember* ProcedureCompiler::pollOf(const IfStmt& statement, const CallStmt*& otherwise) {
    if (statement.branches.size() != 1) return nullptr;
    const IfStmt::Branch& branch = statement.branches.front();
    const Expr* negation = branch.condition;
    while (negation->kind == ExprKind::Group) negation = negation->left;
    if (negation->kind != ExprKind::Unary || negation->op != Token::Not) return nullptr;
    const Stmt* only = branch.body.first;
    if (only == nullptr || only->next != nullptr || only->kind != StmtKind::Call) return nullptr;
    otherwise = static_cast<const CallStmt*>(only);
    return polledMember(*negation->left);
}

bool ProcedureCompiler::isRaise(const CallStmt& statement) {
    const Expr& callee = *statement.call->left;
    if (callee.kind != ExprKind::Member || callee.left->kind != ExprKind::Name) return false;
    return module_.engine().isErr(callee.left->name) && bind(callee.left->name).kind == Binding::Kind::Constant &&
           lowerCase(module_.names().spelling(callee.name)) == "raise";
}

bool ProcedureCompiler::startsWithPoll(const Block& body) {
    const CallStmt* otherwise = nullptr;
    return body.first != nullptr && body.first->kind == StmtKind::If &&
           pollOf(static_cast<const IfStmt&>(*body.first), otherwise) != nullptr;
}

// Where a host wants to look at every line: whether the line of this poll does nothing, as a comment does, Else, and
// the end of an If. At the end of a block the line is the one that ends it, or a comment before that; `endLine`, if
// known, tells which.
bool ProcedureCompiler::isIdlePoll(const Stmt& statement, std::uint32_t endLine) {
    const auto isPoll = [this](const Stmt& one) {
        const CallStmt* otherwise = nullptr;
        return one.kind == StmtKind::If && pollOf(static_cast<const IfStmt&>(one), otherwise) != nullptr;
    };
    if (!module_.engine().keepsEveryPoll || !isPoll(statement)) return false;
    if (statement.next != nullptr) return isPoll(*statement.next);
    return endLine == endsIdly || (endLine != unknownLine && endLine != statement.line + 1);
}

// A second poll with nothing but arithmetic since the first would get the same answer, and is left out, or only asks
// where each line is looked at; but only where the answer False ends the procedure, so that no code runs between the
// two.
void ProcedureCompiler::poll(const HostMember* polled, const CallStmt& otherwise) {
    const bool isRepeated = lastPolled_ == polled;
    if (isRepeated && !module_.engine().keepsEveryPoll) return;
    Label& asked = newLabel();
    Label& back = newLabel();
    code_.procedure().hasPolls = true;
    code_.poll(isRepeated ? Op::PollAgain : Op::Poll, polled->object->pollBudget(polled->member), asked);
    code_.bind(back);
    addColdCode([this, polled, &otherwise, &asked, &back] {
        code_.bind(asked);
        const std::uint32_t answer = code_.takeRegisters();
        code_.emitWithWord(Op::PollHost, answer, 0, 0, polled);
        code_.jump(Op::JumpIf, answer, back);
        callStatement(otherwise);
        mark(line_);
        code_.jump(Op::Jump, 0, back);
    });
    const bool stopsHere = isRaise(otherwise) && !scope_.handlesErrors && !module_.hasClasses && !scope_.runsSource;
    lastPolled_ = stopsHere ? polled : nullptr;
}

// Writing cold code may add more of it to the list.
void ProcedureCompiler::emitColdCode() {
    code_.markColdCode();
    for (std::size_t i = 0; i < cold_.size(); ++i) {
        const ColdCode& cold = cold_[i];
        code_.startRegistersAt(cold.firstRegister);
        withRegister_ = cold.withRegister;
        mark(cold.line);
        cold.write();
    }
}

}  // namespace tolvan::script
