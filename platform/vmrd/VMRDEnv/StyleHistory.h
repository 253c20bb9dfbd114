// The folder of what styles were before: a folder for each identity, in it a file for each version
// that was replaced.
//
// NUMBER-TIME-CONTENT-NEXT-USER.hds: the name of a file tells what a copy of it keeps as well, and
// what a list needs without opening it. The number counts up, so that the order does not depend on
// clocks. TIME and USER are when and by whom the version was replaced; CONTENT and NEXT tell the
// file's own content and the one that came in its place, so that nobody is said to have made what
// came otherwise.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "base/Moment.h"
#include "platform/vmrd/VMRDEnv/StyleFile.h"

namespace designspec {

struct StyleVersion {
    int number = 0;                      // from 1
    Moment replaced;                     // when another one came in its place
    CString user;                        // who did that
    std::uint64_t content = 0, next = 0; // HashOf what it held, and what came in its place
    CString file;                        // its name, in the folder of its identity
};

class StyleHistory {
public:
    // No more than so many of each are kept, no longer than so many months after they were
    // replaced; the last one stays in any case.
    static constexpr size_t kMostVersions = 50;
    static constexpr int kMonths = 12;

    // `path` is that of the folder, which is made when something goes into it, for those who may
    // use the folder above it.
    explicit StyleHistory(CString path) : m_path(std::move(path)) {}

    static std::uint64_t HashOf(std::string_view bytes);

    // Those of that identity, the oldest first. What else stands there is passed over with a note.
    std::vector<StyleVersion> Versions(const GUID& id, Problems& problems) const;
    CString PathOf(const GUID& id, const StyleVersion& version) const;
    // The identities that there are versions of.
    std::vector<GUID> Identities(Problems& problems) const;

    // Keeps what a file held as the last version, before `next` comes in its place; nothing when
    // both are the same. What is the last version already only gets the time of now. Content that
    // an older one has is no second time on the disk. Who may do what is as with the file at
    // `like`. False when it could not be kept.
    bool Keep(const GUID& id, std::string_view bytes, std::string_view next, const CString& like,
              Problems& problems) const;

private:
    CString FolderOf(const GUID& id) const;
    bool Holds(const GUID& id, const StyleVersion& version, std::string_view bytes) const;
    bool Put(const GUID& id, const StyleVersion& version, const std::vector<StyleVersion>& versions,
             std::string_view bytes, const CString& like, Problems& problems) const;
    void DropOld(const GUID& id, const std::vector<StyleVersion>& versions) const;

    CString m_path;
};

} // namespace designspec
