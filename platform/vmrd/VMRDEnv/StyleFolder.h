// The folder that holds the files of a library of styles, and remembers what each of them held
// when it was last loaded or saved here: what is in it otherwise was written by somebody else.
//
// Deleted styles are set aside, not lost: their files go to the folder 已删除 inside this one, from
// where they can be brought back. What saving replaces is kept in the folder 历史 inside this one.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "platform/vmrd/VMRDEnv/DeletedStyles.h"
#include "platform/vmrd/VMRDEnv/KnownFiles.h"
#include "platform/vmrd/VMRDEnv/StyleFile.h"
#include "platform/vmrd/VMRDEnv/StyleHistory.h"

namespace designspec {

// The folder of styles in a project's folder.
inline constexpr wchar_t kStylesFolder[] = L"规范";

// Folder of the project's styles: `project`\规范.
AFX_EXT_API CString StylesFolderOf(const CString& project);

class FileLock;

// Whatever fails adds problems that name the file and the cause.
class AFX_EXT_CLASS StyleFolder {
public:
    // `library` is the name of the library whose styles are meant, in each file.
    StyleFolder(CString path, CString library);
    ~StyleFolder();
    StyleFolder(const StyleFolder&) = delete;
    StyleFolder& operator=(const StyleFolder&) = delete;

    // As long as one of these lives, other programs do not change the folder.
    class AFX_EXT_CLASS Held {
    public:
        Held(Held&& other) noexcept : m_folder(std::exchange(other.m_folder, nullptr)) {}
        Held& operator=(Held&&) = delete;
        ~Held();
        explicit operator bool() const { return m_folder != nullptr; }

    private:
        friend StyleFolder;
        explicit Held(StyleFolder* folder) : m_folder(folder) {}
        StyleFolder* m_folder;
    };
    // Locks the folder, which is made when only it is missing from its project. Whatever changes
    // the folder holds it itself; hold it around what belongs together. False when another program
    // holds it for longer than this one waits, which a problem names, or when there is no project.
    [[nodiscard]] Held Hold(Problems& problems) { return Hold(problems, m_patience); }
    [[nodiscard]] Held Hold(Problems& problems, std::chrono::milliseconds patience);
    bool IsHeld() const { return m_holds > 0; }
    // How long Hold waits, and who is told, once, that it waits for `holder`. Five seconds, nobody.
    void SetPatience(std::chrono::milliseconds patience,
                     std::function<void(const CString& holder)> notice);
    // True while a program holds the folder, and after one was killed that did.
    bool IsBusy() const;

    const CString& Path() const { return m_path; }
    CString DeletedPath() const;
    AFX_EXT_PRIVATE DeletedStyles Aside() const;
    // What styles were before.
    AFX_EXT_PRIVATE StyleHistory History() const;
    const CString& Library() const { return m_library; }
    // False when the folder that this one stands in, the project's, is not there.
    bool HasPlace() const;
    // Path of the file of that name.
    CString PathOf(const CString& file) const;
    // Another folder from now on, of whose files nothing is known. Nothing happens when it is the
    // same.
    void MoveTo(const CString& path);
    void Forget();

    // Whether the file holds the style; one that holds but one style is taken to hold that one.
    // Nothing when the file cannot be read.
    std::optional<bool> Holds(const CString& file, const GUID& id, Problems& problems) const;
    // The styles in the file. Nothing when it cannot be read.
    std::optional<std::vector<StyleEntry>> Entries(const CString& file, Problems& problems) const;
    // Names of the files of styles, sorted, ignoring case.
    CStringArray Files(Problems& problems) const;
    // Whether there is a file of that name; nothing when that cannot be told.
    std::optional<bool> Has(const CString& file, Problems& problems) const;
    // True when the file is as it was last loaded or saved here, or gone as it was left.
    bool IsKnown(const CString& file) const;
    // Whether the style stood in the file when that was last loaded or saved here.
    bool HeldBefore(const CString& file, const GUID& id) const { return m_known.Held(file, id); }
    // True when all files are, and none has come or gone.
    bool IsAsKnown() const;
    // Names of the files that were neither loaded nor saved here, in no order that is told.
    CStringArray Strangers(Problems& problems) const;

    bool Load(const CString& file, CXTPPropExchangeXMLNode& root, Problems& problems);
    // The same in two steps: the first one can be taken for several files at a time, each on one
    // thread; what it found is told the folder by the second one. `content` is null for a file that
    // could not be read at all.
    AFX_EXT_PRIVATE bool Read(const CString& file, CXTPPropExchangeXMLNode& root,
                              std::optional<KnownFiles::Content>& content,
                              Problems& problems) const;
    AFX_EXT_PRIVATE void Know(const CString& file, KnownFiles::Content content);
    // Makes the folder when there is none, but not the project's. Whole or not at all. The first
    // time, what is left there of writes that were killed goes.
    bool Save(const CString& file, const CXTPPropExchangeXMLNode& root, Problems& problems);
    // The same, and keeps what the files of `replaced` hold of its style as versions of it first,
    // as far as that is not the same. A version that could not be kept is told and stops nothing.
    struct Replaced {
        GUID id;
        CStringArray files; // the one that counted is the last one
    };
    bool Save(const CString& file, const CXTPPropExchangeXMLNode& root, const Replaced& replaced,
              Problems& problems);
    // Keeps them; `next` is what comes in their place.
    AFX_EXT_PRIVATE void KeepVersions(const Replaced& replaced, std::string_view next,
                                      Problems& problems) const;
    // True when the file is gone; without a problem false when there was none.
    bool Delete(const CString& file, Problems& problems);

    // A value of setting.ini, empty when there is none; and set.
    CString Setting(const wchar_t* section, const wchar_t* key, Problems& problems) const;
    bool SetSetting(const wchar_t* section, const wchar_t* key, const CString& value,
                    Problems& problems);

    // A name that no file here or among the deleted ones has: `file`, or with "(1)", "(2)" … behind
    // its stem. Empty when that cannot be told.
    CString FreeName(const CString& file, Problems& problems) const;
    // Puts a copy of the file among the deleted ones; its name there, empty after a failure.
    CString KeepCopy(const CString& file, Problems& problems);
    // Puts a style that has no file here among the deleted ones, as `file` would have held it; its
    // name there, empty after a failure.
    CString SaveDeleted(const CString& file, const CXTPPropExchangeXMLNode& root,
                        Problems& problems);
    // Takes such a copy away again: what it was kept for did not come about.
    void DropCopy(const CString& copy, Problems& problems);

    // Moves what stands at `path` into the folder, over what is there.
    AFX_EXT_PRIVATE bool MoveIn(const CString& path, const CString& file, Problems& problems);

    // Sets the style of a file aside. A file that holds something else too keeps that: a file of
    // the style alone goes to the deleted ones, and it is taken out of the other. A file that holds
    // but one style is taken to hold that one. A file of that name set aside earlier stays: the new
    // one gets "(1)", "(2)" … behind its name. False when that failed or the file does not hold the
    // style; then the file is where it was. A note says where it went.
    bool SetAside(const CString& file, const GUID& id, Problems& problems);
    // Sets the whole file aside, whatever it holds.
    bool SetAside(const CString& file, Problems& problems);
    // Does so for each file that holds the style. False when one is left, or one cannot be read
    // that held it when it was last loaded or saved here, or is called as one that does. Of other
    // files that cannot be read the problems tell.
    bool SetAside(const GUID& id, Problems& problems);
    // What has been set aside, by file name.
    std::vector<DeletedStyle> Deleted(Problems& problems) const;
    // The styles of all files of the folder that can be read.
    std::vector<StyleEntry> Present(Problems& problems) const;
    // Moves a file back from the deleted ones, beside those that are `present`, to which its styles
    // are added. One whose name another has got meanwhile comes back as NAME(1), NAME(2) …, with a
    // note. False when a file of that name or all of its styles are there, or it cannot be read or
    // moved. The caller loads it.
    bool BringBack(const CString& file, std::vector<StyleEntry>& present, Problems& problems);
    bool BringBack(const CString& file, Problems& problems);

private:
    AFX_EXT_PRIVATE void LetGo();
    AFX_EXT_PRIVATE void Remember(const CString& file);
    AFX_EXT_PRIVATE std::optional<std::string> VersionIn(const CString& file, const GUID& id,
                                                         Problems& problems) const;

    CString m_path;
    CString m_library;
    bool m_tidied = false; // of what writes that were killed left
    std::unique_ptr<FileLock> m_lock;
    int m_holds = 0;
    bool m_wasMissing = false; // before it was held
    std::chrono::milliseconds m_patience{5000};
    std::function<void(const CString&)> m_notice;
    KnownFiles m_known;
};

} // namespace designspec
