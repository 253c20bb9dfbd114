#include <cstdio>

#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"
#include "cli/JsonReading.h"
#include "cli/SpecificationChange.h"

using namespace designspec;

namespace {

constexpr std::size_t kLargestFile = 64 << 20; // a hundred times what any specification takes
constexpr char kStandardInput[] = "-";

std::string StandardInput(Teller& teller)
{
    std::string bytes;
    char part[64 * 1024];
    while (const std::size_t size = std::fread(part, 1, sizeof part, stdin)) {
        bytes.append(part, size);
        if (bytes.size() > kLargestFile) break;
    }
    if (bytes.size() <= kLargestFile && !std::ferror(stdin)) return bytes;
    RefuseReading({{Severity::Error, {}, 0, L"标准输入读不了或过长"}}, teller);
}

std::string BytesOf(const CString& file, Teller& teller)
{
    std::string bytes;
    Problems problems;
    if (ReadWholeFile(file, bytes, kLargestFile, problems)) return bytes;
    RefuseReading(problems, teller);
}

} // namespace

Status RunApply(const Arguments& arguments, Teller& teller)
{
    const bool isInput = arguments.file == kStandardInput;
    const CString file = isInput ? L"标准输入" : PathArgument(arguments.file);
    JsonReading reading(isInput ? StandardInput(teller) : BytesOf(file, teller), file);
    if (!reading.Problems().empty()) RefuseReading(reading.Problems(), teller);

    Project project(arguments, teller, arguments.dryRun ? ProjectUse::Read : ProjectUse::Change);
    CDesignSpecification& specification =
        TargetOf(project, arguments, reading.Identity(), reading.Name());
    CDesignSpecification changed = specification;
    reading.ApplyTo(changed);
    if (!reading.Problems().empty()) RefuseReading(reading.Problems(), teller);
    return ChangeTo(project, specification, changed, arguments, teller);
}
