// From what the user types to the module.

#include "translator/Formatter.h"
#include "translator/Keywords.h"
#include "translator/Modules.h"
#include "translator/ProgramText.h"
#include "translator/Translator.h"

#include <gtest/gtest.h>
#include <set>

namespace tolvan {
namespace {

struct Row {
    std::string_view roman, script;
};

constexpr Row keywordRows[] = {
    {"korA", "parentform.ClearScreen"},
    {"dAkhav", "parentform.PrintString"},
    {"ghe", "parentform.InputString"},
    {"lahAn", "<"},
    {"moThA", ">"},
    {"jar", "IF"},
    {"tar", "THEN"},
    {"nAhItar", "ELSE"},
    {"nAhItarajar", "ELSEIF"},
    {"saMpav", "END"},
    {"puDhachA", "NEXT '"},
    {"jovar", "WHILE"},
    {"tovar", ""},
    {"kar", "WEND"},
    {"ANi", "AND"},
    {"nAhI", "NOT"},
    {"kiMvA", "OR"},
    {"barobar", "="},
    {"mitI", "DIM"},
    {"adhik", "+"},
    {"vajA", "-"},
    {"guNile", "*"},
    {"bhAgile", "/"},
    {"ughaD", "parentform.FileOPEN"},
    {"aMkik", "CDBL"},
    {"shAbdik", "CSTR"},
    {"raMg", "RGB"},
    {"ruMdI", "DisplayWidth"},
    {"uMchI", "DisplayHeight"},
    {"lAMbI", "DisplayHeight"},
    {"upaprAyojan", "Function"},
    {"vAchaNyAsAThI", "1"},
    {"lihiNyAsAThI", "2"},
    {"joDaNyAsAThI", "3"},
    {"baMd", "parentform.FileCLOSE '"},
    {"lihI", "parentform.FileWRITE"},
    {"vAch", "parentform.FileINPUT"},
    {"phAilaMt", "parentform.EndOfFile"},
    {"thAMb", "parentform.StopExecution"},
};

TEST(RomanPrograms, EveryKeywordAmongOtherWords) {
    std::set<std::string_view> words;
    for (const Row& row : keywordRows) {
        const std::string roman(row.roman);
        const std::string program = std::string("vay ").append(roman).append("(").append(roman).append("q 7");
        const std::string line = Translator().TranslateLine(ProgramText(program));
        EXPECT_EQ(line, moduleText(" @1 " + std::string(row.script) + "(@2 7  ")) << roman;
    }
    for (const Keyword& keyword : keywords()) words.insert(keyword.word);
    EXPECT_EQ(words.size(), std::size(keywordRows)) << "each word has a row here";
}

TEST(RomanPrograms, Modules) {
    const Row rows[] = {
        {R"(suchanA pADhA
korA
AMk sAThI 1 te 10 paryaMt
      dAkhav shAbdik(AMk * 7)
puDhachA AMk
)",
         R"(Sub Main()
!

!
parentform.ClearScreen
!
for @1 =   1  to   10
!
parentform.PrintString CSTR(@1 * 7)
!
NEXT ' @1
End Sub
)"},
        {R"(vay = aMkik(ghe(#"#vay kiti?#"#))
jar vay moThA 17 ANi nAhI (vay > 64) tar
      dAkhav #"#namaskAr, jag#"#
nAhItarajar vay = -1 tar
      thAMb
nAhItar
      dAkhav #"Hello, World" & "# #"#
saMpav jar)",
         R"(Sub Main()
!
@1 = CDBL(parentform.InputString("vy ikit{?}"))
!
IF @1 > 17 AND NOT (@1 > 64) THEN
!
parentform.PrintString "nmSkar{,} jg"
!
ELSEIF @1 = -1 THEN
!
parentform.StopExecution
!
ELSE
!
parentform.PrintString "{Hello, World}" & " "
!
END IF
End Sub
)"},
        {R"(mitI ghar(10)
ughaD #"a.txt"#, vAchaNyAsAThI
jovar nAhI phAilaMt tovar
vAch ghar(1)
kar
baMd ghar
dAkhav duppaT(ghar(1))
upaprAyojan duppaT(A)
duppaT = A guNile 2
upaprAyojan saMpav)",
         R"(Sub Main()
!
DIM @1(10)
!
parentform.FileOPEN "{a.txt}", 1
!
WHILE NOT parentform.EndOfFile
!
parentform.FileINPUT @1(1)
!
WEND
!
parentform.FileCLOSE ' @1
!
parentform.PrintString @2(@1(1))
End Sub



Function @2(@3)
!
@2 = @3 * 2
!
End Function)"},
        {R"((0, 0) pAsun (30, y) paryaMt 255 raMgAchI regh Akh
(x, 40) paryaMt bharalele Ayat kADh
(5, 6) var raMg(1, 2, 3) raMgAchA biMdU kADh
(x, y) pAsun 50 trijyAche raMg(255, 0, 0) raMgAche bharalele vartuL kADh
(1, 2) pAsun 9 trijyA Asalele 7 raMgAche vartuL kADh)",
         R"(Sub Main()
!
parentform.DrawLine  30, @1 , 0, 0 , 255
!
parentform.DrawBox  @2, 40 , TRUE
!
ParentForm.DrawPoint  5, 6 ,  RGB(1, 2, 3)
!
ParentForm.DrawCircle  @2, @1 ,   50 ,  RGB(255, 0, 0) , TRUE
!
ParentForm.DrawCircle  1, 2 ,   9 ,  7 , FALSE
End Sub
)"},
    };
    const auto crLf = [](std::string_view roman) {
        std::string text;
        for (const char c : roman) text.append(c == '\n' ? "\r" : "").append(1, c);
        return text;
    };
    for (const Row& row : rows)
        EXPECT_EQ(Translator().Compile(ProgramText(crLf(row.roman))), moduleText(row.script)) << row.roman;
}

TEST(RomanPrograms, Formatted) {
    const std::string roman = "jovar x tovar\r\njar x > 1 tar\r\nkorA\r\nnAhItar\r\nthAMb\r\nsaMpav\r\nkar";
    EXPECT_EQ(formatProgram(roman, ProgramText(roman).text()),
              "jovar x tovar\r\n      jar x > 1 tar\r\n            korA\r\n      nAhItar\r\n            thAMb\r\n"
              "      saMpav\r\nkar");
}

}  // namespace
}  // namespace tolvan
