#include "platform/script/compiler/SymbolTable.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tolvan::script {

namespace {

struct SpecialName {
    std::string_view name;
    Special special;
};
constexpr std::array<SpecialName, 4> specialNames = {{{"Eval", Special::Eval},
                                                      {"Execute", Special::Execute},
                                                      {"ExecuteGlobal", Special::ExecuteGlobal},
                                                      {"GetRef", Special::GetRef}}};

}  // namespace

SymbolTable::SymbolTable(Names& names, Value errObject, Heap& heap)
    : names_(names), memory_(&heap), err_(names.intern("Err")) {
    for (const Builtin& builtin : builtins()) {
        Symbol symbol;
        symbol.kind = Symbol::Kind::Builtin;
        symbol.builtin = &builtin;
        language_[names.intern(builtin.name)] = symbol;
    }
    for (const BuiltinConstant& constant : builtinConstants()) {
        Symbol symbol;
        symbol.kind = Symbol::Kind::Constant;
        symbol.constant = constant.value;
        language_[names.intern(constant.name)] = symbol;
    }
    for (const SpecialName& entry : specialNames) {
        Symbol symbol;
        symbol.kind = Symbol::Kind::Special;
        symbol.special = entry.special;
        language_[names.intern(entry.name)] = symbol;
    }
    Symbol err;
    err.kind = Symbol::Kind::Constant;
    err.constant = std::move(errObject);
    language_[err_] = err;
}

const Symbol* SymbolTable::find(NameId name) {
    const auto inScripts = scripts_.find(name);
    if (inScripts != scripts_.end()) return &inScripts->second;
    const auto inHosts = hosts_.find(name);
    if (inHosts != hosts_.end()) return inHosts->second.kind == Symbol::Kind::None ? nullptr : &inHosts->second;
    if (const Symbol* member = findAddedMember(name)) return member;
    const auto inLanguage = language_.find(name);
    return inLanguage == language_.end() ? nullptr : &inLanguage->second;
}

const Symbol* SymbolTable::findAddedMember(NameId name) {
    for (HostObject* object : global_) {
        const int number = object->findMember(names_.spelling(name));
        if (number == HostObject::noMember) continue;
        Symbol symbol;
        symbol.kind = Symbol::Kind::HostMember;
        symbol.member = hostMember(*object, number, name);
        return &(hosts_[name] = symbol);
    }
    return nullptr;
}

void SymbolTable::addHost(NameId name, HostObject& object, Value reference, bool membersToo) {
    const auto earlier = hosts_.find(name);
    if (earlier != hosts_.end() && earlier->second.host != nullptr) removeHost(earlier->second.host);
    Symbol symbol;
    symbol.kind = Symbol::Kind::HostObject;
    symbol.host = &object;
    symbol.constant = std::move(reference);
    hosts_[name] = symbol;
    if (membersToo) global_.push_back(&object);
}

// Another object takes the name.
void SymbolTable::removeHost(const HostObject* object) {
    std::erase(global_, object);
    std::erase_if(hosts_, [object](const auto& entry) {
        return entry.second.host == object || (entry.second.member != nullptr && entry.second.member->object == object);
    });
}

const HostMember* SymbolTable::hostMember(HostObject& object, int member, NameId name) {
    for (const HostMember& known : hostMembers_)
        if (known.object == &object && known.member == member) return &known;
    return &hostMembers_.emplace_back(HostMember{&object, member, name});
}

// Before the list grows, modules that no longer exist are removed from it.
void SymbolTable::ModuleList::add(const std::shared_ptr<LoadedModule>& module) {
    if (modules_.size() == modules_.capacity()) std::erase_if(modules_, [](const auto& one) { return one.expired(); });
    modules_.push_back(module);
}

SymbolTable::Modules SymbolTable::ModuleList::all() const {
    Modules all;
    for (const auto& module : modules_)
        if (auto held = module.lock()) all.push_back(std::move(held));
    return all;
}

SymbolTable::Modules SymbolTable::usersOf(NameId name) {
    const auto place = users_.find(name);
    return place == users_.end() ? Modules() : place->second.all();
}

void SymbolTable::addUses(const std::shared_ptr<LoadedModule>& module, const std::vector<NameId>& names) {
    for (const NameId name : names)
        if (module->uses.insert(name).second) users_[name].add(module);
}

bool SymbolTable::isFirstUse(NameId name, std::uint32_t user) {
    if (name >= usedBy_.size()) usedBy_.resize(std::max<std::size_t>(name + 1, 2 * usedBy_.size()));
    return std::exchange(usedBy_[name], user) != user;
}

NameId SymbolTable::nameOf(const Value* variable) const {
    for (const auto& [name, symbol] : scripts_)
        if (symbol.variable == variable) return name;
    return 0;
}

void SymbolTable::clearVariables() {
    for (Value& variable : variables_) variable = Value();
}

}  // namespace tolvan::script
