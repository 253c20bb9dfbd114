// Libraries.

#include "base/File.h"
#include "base/Text.h"
#include "c/Objects.h"
#include "library/SpecificationSource.h"
#include "library/StyleName.h"

using namespace designspec;

namespace {

designspec_status StatusOf(const Outcome& outcome)
{
    KeepProblems(outcome.problems);
    return outcome.done ? DESIGNSPEC_OK : DESIGNSPEC_FILE_FAILED;
}

// Hands out what was read, also when a part of it could not be.
designspec_status Opened(std::unique_ptr<SpecificationFolder> folder, const Problems& problems,
                         designspec_library** library)
{
    const bool isWhole = folder && !HasError(problems);
    KeepProblems(problems);
    if (folder) HandOut(library, std::make_shared<LibraryObject>(LibraryObject{std::move(folder)}));
    return isWhole ? DESIGNSPEC_OK : DESIGNSPEC_FILE_FAILED;
}

designspec_status OpenAt(const char* path, designspec_library** library, bool wantsFolder)
{
    NeedAll(library);
    const CString place = TextOf(path);
    if (place.empty()) RefuseCall(L"路径为空");
    if (IsFolder(place) != wantsFolder) {
        const wchar_t* const cause = wantsFolder ? L"文件夹不存在" : L"文件不存在";
        throw CallFailure{DESIGNSPEC_FILE_FAILED, place + L": " + cause};
    }
    Problems problems;
    auto folder = ReadSpecificationsAt(place, problems);
    return Opened(std::move(folder), problems, library);
}

void HandOutFound(const std::shared_ptr<LibraryObject>& library, const CDesignSpecification* found,
                  designspec_specification** specification)
{
    if (!found) throw CallFailure{DESIGNSPEC_NO_ANSWER, L"库中没有这个设计规范"};
    HandOut(specification,
            std::make_shared<SpecificationObject>(SpecificationObject{library, found->ID(), {}}));
}

// One of the library's own.
CDesignSpecification& OwnOf(const std::shared_ptr<LibraryObject>& library,
                            const designspec_specification* specification)
{
    const auto object = ObjectOf<SpecificationObject>(specification);
    if (object->library != library) RefuseCall(L"设计规范不是这个库的");
    return object->Get();
}

CStringArray NamesOf(const char* const* names, size_t count)
{
    if (count > 0) NeedAll(names);
    CStringArray texts;
    for (size_t i = 0; i < count; ++i)
        texts.push_back(TextOf(names[i]));
    return texts;
}

// Runs an operation on a library and one of its specifications.
template <class Work>
designspec_status CallWithOwn(designspec_library* library,
                              const designspec_specification* specification, Work work) noexcept
{
    return Call([&] {
        const auto object = ObjectOf<LibraryObject>(library);
        return StatusOf(work(*object->folder, OwnOf(object, specification)));
    });
}

} // namespace

designspec_status designspec_library_open(const char* folder, designspec_library** library)
{
    return Call([&] { return OpenAt(folder, library, true); });
}

designspec_status designspec_library_read(const char* file, designspec_library** library)
{
    return Call([&] { return OpenAt(file, library, false); });
}

designspec_status designspec_library_parse(const char* text, size_t size, const char* name,
                                           designspec_library** library)
{
    return Call([&] {
        NeedAll(text, library);
        Problems problems;
        auto folder = ReadSpecificationsIn({text, size}, TextOf(name), problems);
        return Opened(std::move(folder), problems, library);
    });
}

designspec_status designspec_library_close(designspec_library* library)
{
    return EndHandle<LibraryObject>(library);
}

designspec_status designspec_library_reload(designspec_library* library)
{
    return Call([&] {
        SpecificationFolder& folder = *ObjectOf<LibraryObject>(library)->folder;
        if (folder.Files().Path().empty()) RefuseCall(L"库不在文件夹中,不能重新读取");
        return StatusOf(folder.Load());
    });
}

designspec_status designspec_library_count(const designspec_library* library, size_t* count)
{
    return Call([&] {
        NeedAll(count);
        *count = static_cast<size_t>(ObjectOf<LibraryObject>(library)->folder->Count());
    });
}

designspec_status designspec_library_at(designspec_library* library, size_t index,
                                        designspec_specification** found)
{
    return Call([&] {
        NeedAll(found);
        const auto object = ObjectOf<LibraryObject>(library);
        const bool isThere = index < static_cast<size_t>(object->folder->Count());
        HandOutFound(object, isThere ? object->folder->Item(static_cast<int>(index)) : nullptr,
                     found);
    });
}

designspec_status designspec_library_find(designspec_library* library, const char* name_or_id,
                                          designspec_specification** found)
{
    return Call([&] {
        NeedAll(found);
        const auto object = ObjectOf<LibraryObject>(library);
        const CString wanted = TextOf(name_or_id);
        HandOutFound(object, wanted.empty() ? nullptr : FindSpecification(*object->folder, wanted),
                     found);
    });
}

designspec_status designspec_library_default(designspec_library* library,
                                             designspec_specification** found)
{
    return Call([&] {
        NeedAll(found);
        const auto object = ObjectOf<LibraryObject>(library);
        Problems problems;
        const auto id = object->folder->Default(problems);
        KeepProblems(problems);
        HandOutFound(object, id ? object->folder->Find(*id) : nullptr, found);
    });
}

designspec_status designspec_library_set_default(designspec_library* library,
                                                 const designspec_specification* specification)
{
    return CallWithOwn(library, specification,
                       [](SpecificationFolder& folder, const CDesignSpecification& one) {
                           return folder.SetDefault(one);
                       });
}

designspec_status designspec_library_add(designspec_library* library,
                                         const designspec_specification* specification,
                                         designspec_specification** added)
{
    return Call([&] {
        const auto object = ObjectOf<LibraryObject>(library);
        const CDesignSpecification& given = ObjectOf<SpecificationObject>(specification)->Get();
        auto made = std::make_unique<CDesignSpecification>();
        made->CopyCriteria(given);
        made->SetName(given.Name().c_str());
        if (const CString problem = StyleNameProblem(made->Name()); !problem.empty())
            RefuseCall(problem);
        SpecificationFolder& folder = *object->folder;
        const CDesignSpecification& one = folder.Add(std::move(made));
        const designspec_status status = StatusOf(folder.Save(one));
        if (status != DESIGNSPEC_OK)
            folder.TakeOut(folder.IndexOf(one));
        else if (added)
            HandOutFound(object, &one, added);
        return status;
    });
}

designspec_status designspec_library_save(designspec_library* library,
                                          const designspec_specification* specification)
{
    return CallWithOwn(library, specification,
                       [](SpecificationFolder& folder, const CDesignSpecification& one) {
                           return folder.Save(one);
                       });
}

designspec_status designspec_library_rename(designspec_library* library,
                                            designspec_specification* specification,
                                            const char* name)
{
    return CallWithOwn(
        library, specification, [&](SpecificationFolder& folder, CDesignSpecification& one) {
            const CString wanted(Trim(TextOf(name)));
            const CString problem = StyleNameProblem(folder, wanted, one.Name());
            if (!problem.empty()) RefuseCall(problem);
            return wanted == one.Name() ? Outcome{true, {}} : folder.Rename(one, wanted);
        });
}

designspec_status designspec_library_remove(designspec_library* library,
                                            const designspec_specification* specification)
{
    return CallWithOwn(library, specification,
                       [](SpecificationFolder& folder, const CDesignSpecification& one) {
                           return folder.Remove(one);
                       });
}

designspec_status designspec_library_import(designspec_library* library, const char* file,
                                            const char* const* names, size_t count, int overwrite,
                                            size_t* taken)
{
    return Call([&] {
        const auto object = ObjectOf<LibraryObject>(library);
        ImportOutcome outcome =
            object->folder->Import(TextOf(file), NamesOf(names, count), overwrite != 0);
        size_t came = 0;
        for (const TakenSpecification& one : outcome.specifications)
            came += one.how != Taken::Left && one.saved;
        if (taken) *taken = came;
        return StatusOf(outcome);
    });
}

designspec_status designspec_library_export(const designspec_library* library, const char* file,
                                            const char* const* names, size_t count)
{
    return Call([&] {
        const auto object = ObjectOf<LibraryObject>(library);
        return StatusOf(object->folder->Export(TextOf(file), NamesOf(names, count)));
    });
}
