#include <cstdio>

#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"
#include "cli/JsonReading.h"
#include "cli/SpecificationChange.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

constexpr std::size_t kLargestFile = 64 << 20; // a hundred times what any specification takes
constexpr char kStandardInput[] = "-";

[[noreturn]] void RefuseFile(const Problems& problems, Teller& teller)
{
    teller.Tell(problems);
    throw CommandFailure{kFileFailed, L"未作任何修改"};
}

std::string StandardInput(Teller& teller)
{
    std::string bytes;
    char part[64 * 1024];
    while (const std::size_t size = std::fread(part, 1, sizeof part, stdin)) {
        bytes.append(part, size);
        if (bytes.size() > kLargestFile) break;
    }
    if (bytes.size() <= kLargestFile && !std::ferror(stdin)) return bytes;
    RefuseFile({{Severity::Error, {}, 0, L"标准输入读不了或过长"}}, teller);
}

std::string BytesOf(const CString& file, Teller& teller)
{
    std::string bytes;
    Problems problems;
    if (ReadWholeFile(file, bytes, kLargestFile, problems)) return bytes;
    RefuseFile(problems, teller);
}

// The one that --spec names, else the one that the document was written from, else as ever.
CDesignSpecification& Target(const Project& project, const Arguments& arguments,
                             const JsonReading& reading)
{
    if (arguments.spec) return project.Chosen(arguments);
    GUID id;
    if (reading.Identity() && VMRDPub::ParseGUID(*reading.Identity(), id))
        if (CDesignSpecification* const found = project.Folder().Find(id)) return *found;
    return reading.Name() ? project.Find(ToUtf8(*reading.Name())) : project.Chosen(arguments);
}

} // namespace

Status RunApply(const Arguments& arguments, Teller& teller)
{
    const bool isInput = arguments.file == kStandardInput;
    const CString file = isInput ? L"标准输入" : PathArgument(arguments.file);
    JsonReading reading(isInput ? StandardInput(teller) : BytesOf(file, teller), file);
    if (!reading.Problems().empty()) RefuseFile(reading.Problems(), teller);

    Project project(arguments, teller, arguments.dryRun ? ProjectUse::Read : ProjectUse::Change);
    CDesignSpecification& specification = Target(project, arguments, reading);
    CDesignSpecification changed = specification;
    reading.ApplyTo(changed);
    if (!reading.Problems().empty()) RefuseFile(reading.Problems(), teller);
    return ChangeTo(project, specification, changed, arguments, teller);
}
