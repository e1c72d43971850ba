#include "platform/script/library/FunctionArguments.h"

#include <vector>

namespace tolvan::script {

std::span<const Builtin> builtins() {
    static const std::vector<Builtin> all = [] {
        std::vector<Builtin> rows;
        for (const auto group : {arrayFunctions(), conversionFunctions(), dateFunctions(), dateArithmeticFunctions(),
                                 formatFunctions(), inspectionFunctions(), mathematicsFunctions(), outsideFunctions(),
                                 textFunctions(), textSearchFunctions()})
            rows.insert(rows.end(), group.begin(), group.end());
        return rows;
    }();
    return all;
}

}  // namespace tolvan::script
