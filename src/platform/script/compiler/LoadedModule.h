// What a compiled module consists of besides procedures: classes, and what its code refers to.
#pragma once

#include "platform/script/Heap.h"
#include "platform/script/HostObject.h"
#include "platform/script/compiler/Procedure.h"
#include "platform/script/syntax/Names.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace tolvan::script {

struct LoadedModule;

// A procedure's place under its name; a later definition takes it over.
struct ProcedureSlot {
    std::shared_ptr<const Procedure> procedure;
    std::shared_ptr<const LoadedModule> module;  // that the procedure is from; null: from the source of an Execute
};

// One member of a host object, looked up once.
struct HostMember {
    HostObject* object;
    int member;
    NameId name;  // one that it has been called by
};

// A class of a script. Members that are private are found only by the class's own code.
class ScriptClass {
  public:
    struct Member {
        std::shared_ptr<const Procedure> call;  // Sub, Function, Property Get
        std::shared_ptr<const Procedure> let;
        std::shared_ptr<const Procedure> set;
        int field = -1;
        bool isPrivate = false;     // of field and call
        bool isPrivateLet = false;  // of let and set
    };

    NameId name = 0;
    std::string spelling;
    std::unordered_map<NameId, Member> members;
    std::vector<std::vector<std::uint32_t>> fieldBounds;  // extents of the fields that are arrays from the start
    std::vector<bool> fieldIsArray;
    NameId defaultMember = defaultMemberName;  // its name, if there is one
    std::shared_ptr<const Procedure> initialize;
    std::shared_ptr<const Procedure> terminate;
    std::shared_ptr<const LoadedModule> module;

    std::size_t fieldCount() const { return fieldIsArray.size(); }
    const Member* find(NameId member) const {
        const auto place = members.find(member == defaultMemberName ? defaultMember : member);
        return place == members.end() ? nullptr : &place->second;
    }
};

// A module with procedures or classes, as long as one of them is in use. Its procedures are compiled again when one of
// the names that it uses gets another meaning.
struct LoadedModule {
    void keepSource(std::string_view text, Heap& heap) {
        memory = HeapCharge(&heap);
        memory.add(text.size());
        source = text;
    }

    std::string source;
    HeapCharge memory;
    std::unordered_map<NameId, ScriptClass*> classes;
    std::unordered_set<NameId> uses;  // a change of their meaning changes the code
};

}  // namespace tolvan::script
