#include "translator/MessageTable.h"

#include "platform/encoding/Deva.h"

#include <algorithm>
#include <array>

namespace tolvan {
namespace {

constexpr auto table = std::to_array<Message>({
    {3, "\\f1%pàayaejnat nstan prt{yacI A}a"_deva},
    {5, "\\f1%pàayaejnala baelv{ycI cuikcI pÏt"_deva},
    {6, "\\f1tolvn biskla Hepenase Hale"_deva},
    {7, "\\f1purezI Smri[ka %plB\" nahI"_deva},
    {9, "\\f1hÎICya baherIl cl"_deva},
    {10, "\\f1he cl sÏ(a Aafklele Aahe"_deva},
    {11, "\\f1zuNyne -gakar tolvn beiskla krta yet nahI"_deva},
    {13, "\\f1cla<ce àkar bdlta yet nahIt"_deva},
    {14, "\\f1vaKya<saQI Smri[ket jga %plBx nahI"_deva},
    {16, "\\f1vaKy Ait ikckq Aahe"_deva},
    {17, "\\f1Aa}a pu[R krta yet nahI"_deva},
    {18, "\\f1calkane àayaejn Aafvle"_deva},
    {20, "\\f1gfbf nstana puFe ja{yacI Aa}a"_deva},
    {28, "\\f1cla<cI nave Smr[ kr{ysaQI Smri[ka %plBx nahI"_deva},
    {35, "\\f1%pàayaejn %plBx nahI"_deva},
    {47, "\\f1s<¢halyala )ar àayaejne jaeflelI Aahet"_deva},
    {48, "\\f1s<¢haly %\"d{yat gfbd HalI"_deva},
    {49, "\\f1s<¢halyatIl %pàayaejnas baelv{yacI cuikcI pÏt"_deva},
    {51, "\\f1àyaejnat A<trgt gfbf"_deva},
    {52, "\\f1)a$l ce cuikce nav ik<va ³ma<k"_deva},
    {53, "\\f1)a$l sapflI nahI"_deva},
    {54, "\\f1)a$l %\"f{yaca cuikca àkar"_deva},
    {55, "\\f1)a#l Agaedrc %\"dlelI Aahe"_deva},
    {57, "\\f1%pkr[azI s<pkR sax{yat gfbf"_deva},
    {58, "\\f1)a#l Agaedrc AaiStTvat Aahe"_deva},
    {59, "\\f1clacI la<bI cukIcI"_deva},
    {61, "\\f1ifSk mxe jaga nahI"_deva},
    {62, "\\f1)a#lca A<t Agaedrc Hala"_deva},
    {63, "\\f1cukIca Aae¦ ³ma<k"_deva},
    {67, "\\f1@kac ve¦I )ar )a#l %\"dleLya Aahet"_deva},
    {68, "\\f1%pkr[ %plBx nahI"_deva},
    {70, "\\f1prva<gI nahI"_deva},
    {71, "\\f1ifSk %plBx nahI"_deva},
    {74, "\\f1Ês\u009dya ifSk vr nav bdlta yet nahI"_deva},
    {75, "\\f1)a#lzI s<pkR sax{yat gfbf"_deva},
    {76, "\\f1magR sapfla nahI"_deva},
    {92, "\\f1cla saQI punravtRn suê Hale nahI"_deva},
    {298, "\\f1A<trgt s<¢halyazI s<pkR saxta yet nahI"_deva},
    {744, "\\f1zaexayla sa<igtlele zaiBdk sapfle nahI"_deva},
    {746, "\\f1bdl )ar maeQe Aahet"_deva},
    {31001, "\\f1Smri[ka s<plelI Aahe %plBx nahI"_deva},
    {1001, "\\f1Smri[ka s<plelI Aahe %plBx nahI"_deva},
    {1002, "\\f1cuikcI vaKyrcna"_deva},
    {1003, "\\f1yewe \\f0: \\f1Aapei]t Aahe"_deva},
    {1004, "\\f1yewe \\f0; \\f1Aapei]t Aahe"_deva},
    {1005, "\\f1yewe \\f0( \\f1Aapei]t Aahe"_deva},
    {1006, "\\f1yewe \\f0) \\f1Aapei]t Aahe"_deva},
    {1007, "\\f1yewe \\f0] \\f1Aapei]t Aahe"_deva},
    {1008, "\\f1yewe \\f0{ \\f1Aapei]t Aahe"_deva},
    {1009, "\\f1yewe \\f0} \\f1Aapei]t Aahe"_deva},
    {1010, "\\f1yewe cl Aapei]t Aahe"_deva},
    {1011, "\\f1yewe \\f0= \\f1Aapei]t Aahe"_deva},
    {1012, "\\f1yewe jr Aapei]t Aahe"_deva},
    {1013, "\\f1yewe te Aapei]t Aahe"_deva},
    {1014, "\\f1yewe wa<b Aapei]t Aahe"_deva},
    {1017, "\\f1yewe tr Aapei]t Aahe"_deva},
    {1018, "\\f1yewe kr Aapei]t Aahe"_deva},
    {1020, "\\f1yewe puFca Aapei]t Aahe"_deva},
    {1023, "\\f1yewe cl Aapei]t Aahe"_deva},
    {1024, "\\f1yewe vaKy Aapei]t Aahe"_deva},
    {1025, "\\f1yewe vaKyaca A<t Aapei]t Aahe"_deva},
    {1026, "\\f1yewe pu[a¡k Aapei]t Aahe"_deva},
    {1027, "\\f1yewe jaevr Aapei]t Aahe"_deva},
    {1028, "\\f1yewe jaevr ik<va vaKyaca A<t Aapei]t Aahe"_deva},
    {1031, "\\f1A¢hay A<k"_deva},
    {1032, "\\f1A¢hay A]r"_deva},
    {1033, "\\f1ya A]rsmuhaca A<t Hala nahI"_deva},
    {1040, "\\f1A¢hay inyamk cl"_deva},
    {32766, "\\f1ore"_deva},
    {32767, "\\f1oaeqe"_deva},
    {-2147221503, "\\f1re\" Aaot yet nahI, ³…pya vaKy tpasun paha"_deva},
    {-2147221502, "\\f1Apei]t vaKy nahI"_deva},
});

}  // namespace

std::span<const Message> messageTable() {
    return table;
}

std::optional<std::string_view> findMessage(std::int32_t number) {
    const auto* found =
        std::find_if(table.begin(), table.end(), [&](const Message& row) { return row.number == number; });
    if (found == table.end()) return std::nullopt;
    return found->text;
}

std::optional<std::string> messageFragment(std::int32_t number) {
    const std::optional<std::string_view> message = findMessage(number);
    if (!message) return std::nullopt;
    std::string fragment;
    for (const char c : *message) {
        if (c == '{' || c == '}') fragment += '\\';
        fragment += c;
    }
    return fragment;
}

}  // namespace tolvan
