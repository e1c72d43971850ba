#include "classroom/ProcessWork.h"

#include "classroom/Examination.h"
#include "classroom/Pack.h"

namespace tolvan::classroom {

void doWork(const ProcessWork& work, const std::string& folder, const Descriptor& result) {
    if (work.kind == ProcessWork::Kind::RunCase)
        runCase(work.program, work.input, work.limits, folder, result);
    else
        static_cast<void>(result.write(writeExamination(examine(work.program, work.start))));
}

std::string packWork(const ProcessWork& work) {
    PackWriter pack;
    pack.number(static_cast<std::int64_t>(work.kind));
    for (const std::string& text : {work.program, work.start, work.input.typed, work.input.keys}) pack.text(text);
    pack.number(work.input.seed);
    pack.real(work.limits.seconds);
    for (const std::uint64_t bytes : {work.limits.outputBytes, work.limits.memoryBytes, work.limits.fileBytes})
        pack.number(static_cast<std::int64_t>(bytes));
    return pack.bytes();
}

ProcessWork unpackWork(std::string_view packed) {
    PackReader pack(packed);
    ProcessWork work;
    work.kind = pack.choice(ProcessWork::Kind::RunCase);
    for (std::string* const text : {&work.program, &work.start, &work.input.typed, &work.input.keys})
        *text = pack.text();
    work.input.seed = static_cast<std::uint32_t>(pack.number());
    work.limits.seconds = pack.real();
    for (std::uint64_t* const bytes : {&work.limits.outputBytes, &work.limits.memoryBytes, &work.limits.fileBytes})
        *bytes = static_cast<std::uint64_t>(pack.number());
    return work;
}

}  // namespace tolvan::classroom
