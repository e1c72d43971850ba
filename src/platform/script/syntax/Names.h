// The names of an engine's scripts and hosts, each numbered once; letter case does not count.
#pragma once

#include "platform/encoding/Ascii.h"
#include "platform/script/Heap.h"
#include "platform/script/Object.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tolvan::script {

class Names {
  public:
    Names();
    // From now on new names count against the limit of the heap.
    void countIn(Heap& heap) { charge_ = HeapCharge(&heap); }

    // Never DefaultMember.
    NameId intern(std::string_view name);
    // The spelling that came first.
    std::string_view spelling(NameId id) const { return *spellings_[id]; }

  private:
    std::unordered_map<std::string, NameId> ids_;  // by lower-case name
    std::vector<std::unique_ptr<const std::string>> spellings_;
    HeapCharge charge_;
};

}  // namespace tolvan::script
