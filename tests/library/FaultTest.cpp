// What is on disk when file operations fail, each in turn, or the process stops at each of them.
//
// The program defines the file calls that the library makes; they hand on to the system's own
// unless a failure is due.
#include <cerrno>
#include <cstdarg>
#include <functional>
#include <map>
#include <set>
#include <utility>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "base/Text.h"
#include "library/SpecificationHistory.h"
#include "tests/support/LibraryTest.h"

using namespace designspec;
namespace fs = std::filesystem;

namespace {

enum class Failing {
    Once,    // one operation fails; the next ones work
    FromNow, // nothing reaches the disk from that operation on, as when the process stops there
};

struct Fault {
    bool armed = false;
    int at = 0; // the operation that fails, from 1
    int error = 0;
    Failing failing = Failing::Once;
    int count = 0; // operations since armed
};

Fault g_fault;

// What happens when a folder is flushed.
struct FolderFlushes {
    int error = 0;              // 0: it works
    std::set<fs::path> folders; // the ones flushed
};

FolderFlushes g_flushes;

// What happens to temporary files.
struct Temporaries {
    int closeError = 0; // 0: they can be closed
    int flushed = 0;
};

Temporaries g_temporaries;

bool IsTemporary(int fd)
{
    std::error_code error;
    return fs::read_symlink("/proc/self/fd/" + std::to_string(fd), error).extension() == ".tmp";
}

// While a call of ours makes calls of its own, those do not count. Many files are read by several
// threads.
thread_local bool g_inside = false;
class Inside {
public:
    Inside() : m_before(std::exchange(g_inside, true)) {}
    ~Inside() { g_inside = m_before; }
    Inside(const Inside&) = delete;
    Inside& operator=(const Inside&) = delete;

private:
    bool m_before;
};

// What an operation does. Looking at a file does not fail for want of room; what fails for want of
// rights is looking at it.
enum class Doing { Changing, Looking };

// Counts one operation; true when it must fail.
bool MustFail(Doing doing = Doing::Changing)
{
    if (!g_fault.armed || g_inside) return false;
    if (g_fault.error == (doing == Doing::Looking ? ENOSPC : EACCES)) return false;
    ++g_fault.count;
    const bool fails = g_fault.failing == Failing::Once ? g_fault.count == g_fault.at
                                                        : g_fault.count >= g_fault.at;
    if (fails) errno = g_fault.error;
    return fails;
}

template <class Function> Function* Real(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

#pragma GCC visibility push(default)
extern "C" {

int open(const char* path, int flags, ...)
{
    static const auto real = Real<int(const char*, int, ...)>("open");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = flags & O_CREAT ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return MustFail() ? -1 : real(path, flags, mode);
}

ssize_t read(int fd, void* buffer, size_t size)
{
    static const auto real = Real<ssize_t(int, void*, size_t)>("read");
    return MustFail() ? -1 : real(fd, buffer, size);
}

// A disk that is full takes a part first.
ssize_t write(int fd, const void* buffer, size_t size)
{
    static const auto real = Real<ssize_t(int, const void*, size_t)>("write");
    if (!MustFail()) return real(fd, buffer, size);
    if (g_fault.count == g_fault.at) static_cast<void>(real(fd, buffer, size / 2));
    errno = g_fault.error;
    return -1;
}

// True when it is a folder that cannot be flushed.
static bool CountFlush(int fd)
{
    const Inside inside;
    struct stat status = {};
    if (fstat(fd, &status) == 0 && S_ISDIR(status.st_mode)) {
        g_flushes.folders.insert(fs::read_symlink("/proc/self/fd/" + std::to_string(fd)));
        return g_flushes.error != 0;
    }
    if (IsTemporary(fd)) ++g_temporaries.flushed;
    return false;
}

int fsync(int fd)
{
    static const auto real = Real<int(int)>("fsync");
    const bool fails = CountFlush(fd);
    errno = g_flushes.error;
    return fails || MustFail() ? -1 : real(fd);
}

int stat(const char* path, struct stat* status) noexcept
{
    static const auto real = Real<int(const char*, struct stat*)>("stat");
    return MustFail(Doing::Looking) ? -1 : real(path, status);
}

int lstat(const char* path, struct stat* status) noexcept
{
    static const auto real = Real<int(const char*, struct stat*)>("lstat");
    return MustFail(Doing::Looking) ? -1 : real(path, status);
}

int fstat(int fd, struct stat* status) noexcept
{
    static const auto real = Real<int(int, struct stat*)>("fstat");
    return MustFail(Doing::Looking) ? -1 : real(fd, status);
}

int openat(int folder, const char* path, int flags, ...)
{
    static const auto real = Real<int(int, const char*, int, ...)>("openat");
    return MustFail(Doing::Looking) ? -1 : real(folder, path, flags, 0);
}

DIR* opendir(const char* path)
{
    static const auto real = Real<DIR*(const char*)>("opendir");
    return MustFail(Doing::Looking) ? nullptr : real(path);
}

dirent* readdir(DIR* folder)
{
    static const auto real = Real<dirent*(DIR*)>("readdir");
    return MustFail(Doing::Looking) ? nullptr : real(folder);
}

ssize_t getxattr(const char* path, const char* name, void* value, size_t size) noexcept
{
    static const auto real = Real<ssize_t(const char*, const char*, void*, size_t)>("getxattr");
    return MustFail(Doing::Looking) ? -1 : real(path, name, value, size);
}

ssize_t listxattr(const char* path, char* names, size_t size) noexcept
{
    static const auto real = Real<ssize_t(const char*, char*, size_t)>("listxattr");
    return MustFail(Doing::Looking) ? -1 : real(path, names, size);
}

int fremovexattr(int fd, const char* name) noexcept
{
    static const auto real = Real<int(int, const char*)>("fremovexattr");
    return MustFail() ? -1 : real(fd, name);
}

int fsetxattr(int fd, const char* name, const void* value, size_t size, int flags) noexcept
{
    static const auto real = Real<int(int, const char*, const void*, size_t, int)>("fsetxattr");
    return MustFail() ? -1 : real(fd, name, value, size, flags);
}

int fchmod(int fd, mode_t mode) noexcept
{
    static const auto real = Real<int(int, mode_t)>("fchmod");
    return MustFail() ? -1 : real(fd, mode);
}

// The descriptor is closed even when that fails.
int close(int fd)
{
    static const auto real = Real<int(int)>("close");
    const bool fails = MustFail();
    const Inside inside;
    const bool notClosed = g_temporaries.closeError != 0 && IsTemporary(fd);
    const int result = real(fd);
    if (fails || notClosed) errno = notClosed ? g_temporaries.closeError : g_fault.error;
    return fails || notClosed ? -1 : result;
}

int rename(const char* from, const char* to) noexcept
{
    static const auto real = Real<int(const char*, const char*)>("rename");
    return MustFail() ? -1 : real(from, to);
}

int link(const char* from, const char* to) noexcept
{
    static const auto real = Real<int(const char*, const char*)>("link");
    return MustFail() ? -1 : real(from, to);
}

int chmod(const char* path, mode_t mode) noexcept
{
    static const auto real = Real<int(const char*, mode_t)>("chmod");
    return MustFail() ? -1 : real(path, mode);
}

int unlink(const char* path) noexcept
{
    static const auto real = Real<int(const char*)>("unlink");
    return MustFail() ? -1 : real(path);
}

int mkdir(const char* path, mode_t mode) noexcept
{
    static const auto real = Real<int(const char*, mode_t)>("mkdir");
    return MustFail() ? -1 : real(path, mode);
}

} // extern "C"
#pragma GCC visibility pop

namespace {

using Specifications = std::map<std::string, CDesignSpecification>; // by identity

class FaultyDisk : public LibraryTest {
protected:
    // Runs `prepare` and then `act` in a fresh project, again and again, with operation 1, 2, … of
    // `act` failing, until none is left. `act` tells whether it was done; `check(done)` looks at
    // the disk afterwards. At least `fewest` operations must be there to fail.
    void FailEachInTurn(int fewest, const std::function<void()>& prepare,
                        const std::function<bool()>& act, const std::function<void(bool)>& check)
    {
        const std::pair<int, Failing> kinds[] = {{EIO, Failing::Once},
                                                 {EACCES, Failing::Once},
                                                 {ENOSPC, Failing::Once},
                                                 {EIO, Failing::FromNow}};
        for (const auto& [error, failing] : kinds) {
            int at = 1;
            for (;; ++at) {
                ASSERT_LT(at, 500);
                SCOPED_TRACE("operation " + std::to_string(at) + ", error " +
                             std::to_string(error) +
                             (failing == Failing::Once ? "" : ", and all that follow"));
                for (const auto& entry : fs::directory_iterator(m_project.Native()))
                    fs::remove_all(entry);
                CDesignSpecifications::Destroy();
                prepare();
                m_trace.Clear();
                g_fault = {true, at, error, failing, 0};
                const bool done = act();
                g_fault.armed = false;
                const bool allWorked = g_fault.count < at;
                if (allWorked) {
                    EXPECT_TRUE(done);
                    EXPECT_EQ(TemporaryFiles(), 0);
                }
                check(done);
                if (HasFailure()) return;
                if (allWorked) break;
            }
            EXPECT_GT(at, error == EACCES ? 1 : fewest);
        }
    }

    int TemporaryFiles() const
    {
        int count = 0;
        for (const auto& entry : fs::recursive_directory_iterator(m_project.Native()))
            if (entry.path().extension() == ".tmp") ++count;
        return count;
    }

    static Specifications Loaded()
    {
        Reload();
        Specifications loaded;
        for (int i = 0; i < Library().Count(); ++i)
            loaded.emplace(ToUtf8(VMRDPub::GUIDToStr(At(i).ID())), At(i));
        return loaded;
    }

    static bool SetAside(const GUID& id)
    {
        Problems problems;
        return Library().Files().SetAside(id, problems);
    }
    static bool BringBack(const CString& file)
    {
        Problems problems;
        return Library().Files().BringBack(file, problems);
    }
    static std::vector<DeletedStyle> Deleted()
    {
        Problems problems;
        return Library().Files().Deleted(problems);
    }

    static bool IsOneOf(const CDesignSpecification& found,
                        std::initializer_list<CDesignSpecification> allowed)
    {
        return std::any_of(allowed.begin(), allowed.end(),
                           [&](const auto& one) { return one == found; });
    }

    const CDesignSpecification m_old = Make(L"m", 1, kIdA);
    const CDesignSpecification m_new = Make(L"m", 2, kIdA);
    const CDesignSpecification m_other = Make(L"other", 5, kIdB);
};

} // namespace

TEST_F(FaultyDisk, SaveLeavesTheOldContentOrTheNew)
{
    FailEachInTurn(
        8,
        [&] {
            AddSaved(m_old);
            AddSaved(m_other);
        },
        [&] {
            At(0) = m_new;
            return Library().Save(&At(0));
        },
        [&](bool done) {
            const Specifications loaded = Loaded();
            ASSERT_EQ(loaded.size(), 2U);
            EXPECT_TRUE(loaded.at(kIdB) == m_other);
            EXPECT_TRUE(IsOneOf(loaded.at(kIdA), {m_old, m_new}));
            if (done) {
                EXPECT_TRUE(loaded.at(kIdA) == m_new);
            }
        });
}

// With content that was there before, and with one that was not. What is not there any more is a
// version, or it was told that it is not.
TEST_F(FaultyDisk, SaveLosesNoVersionThatItReplaced)
{
    const CDesignSpecification third = Make(L"m", 3, kIdA);
    for (const bool again : {false, true}) {
        FailEachInTurn(
            12,
            [&] {
                AddSaved(m_old);
                At(0) = m_new;
                ASSERT_TRUE(Library().Save(&At(0)));
                if (!again) return;
                At(0) = m_old;
                ASSERT_TRUE(Library().Save(&At(0)));
            },
            [&] {
                At(0) = third;
                return Library().Save(&At(0));
            },
            [&](bool) {
                const CDesignSpecification& replaced = again ? m_old : m_new;
                const bool isTold = m_trace.Text().find(L"没有存入历史") != CString::npos;
                Problems problems;
                std::vector<CDesignSpecification> kept;
                for (const auto& version : VersionsOf(Library().Folder(), m_old.ID(), problems)) {
                    const auto one = ReadVersion(version, m_old.ID(), problems);
                    ASSERT_TRUE(one);
                    kept.push_back(*one);
                }
                EXPECT_TRUE(problems.empty());
                EXPECT_TRUE(kept.back() == m_old);
                if (Loaded().at(kIdA) == third) {
                    EXPECT_TRUE(kept.front() == replaced || isTold);
                }
            });
    }
}

TEST_F(FaultyDisk, SaveOfTheFirstSpecificationLeavesNothingOrAll)
{
    FailEachInTurn(
        10, [&] { Add(m_new); }, [&] { return Library().Save(&At(0)); },
        [&](bool done) {
            const Specifications loaded = Loaded();
            if (done) {
                ASSERT_EQ(loaded.size(), 1U);
            }
            if (!loaded.empty()) {
                EXPECT_TRUE(loaded.at(kIdA) == m_new);
            }
        });
}

// The file under the old name is set aside; it stands before or behind the new one.
TEST_F(FaultyDisk, SaveOutOfAFileOfAnotherName)
{
    for (const char* file : {"规范/aaa.hds", "规范/zzz.hds"}) {
        FailEachInTurn(
            10,
            [&] {
                AddSaved(m_other);
                m_project.Write(file, Envelope(Style("m", kIdA, 1)));
                Reload();
            },
            [&] {
                CDesignSpecification* const item = Library().Item(m_new.ID());
                *item = m_new;
                return Library().Save(item);
            },
            [&](bool done) {
                const Specifications loaded = Loaded();
                ASSERT_EQ(loaded.size(), 2U);
                EXPECT_TRUE(loaded.at(kIdB) == m_other);
                EXPECT_TRUE(IsOneOf(loaded.at(kIdA), {m_old, m_new}));
                if (done) {
                    EXPECT_TRUE(loaded.at(kIdA) == m_new);
                }
            });
    }
}

TEST_F(FaultyDisk, SaveOverAFileOfSeveralLosesNone)
{
    FailEachInTurn(
        16,
        [&] {
            m_project.Write(std::string("规范/m") + kIdA + ".hds",
                            Envelope(Style("m", kIdA, 1) + Style("other", kIdB, 5)));
            Reload();
        },
        [&] {
            At(0) = m_new;
            return Library().Save(&At(0));
        },
        [&](bool done) {
            const Specifications loaded = Loaded();
            ASSERT_EQ(loaded.size(), 2U);
            EXPECT_TRUE(loaded.at(kIdB) == m_other);
            EXPECT_TRUE(IsOneOf(loaded.at(kIdA), {m_old, m_new}));
            if (done) {
                EXPECT_TRUE(loaded.at(kIdA) == m_new);
            }
        });
}

TEST_F(FaultyDisk, SaveOutOfAFileOfSeveralLosesNone)
{
    FailEachInTurn(
        20,
        [&] {
            m_project.Write("规范/zzz.hds",
                            Envelope(Style("m", kIdA, 1) + Style("other", kIdB, 5)));
            Reload();
        },
        [&] {
            At(0) = m_new;
            return Library().Save(&At(0));
        },
        [&](bool done) {
            const Specifications loaded = Loaded();
            ASSERT_EQ(loaded.size(), 2U);
            EXPECT_TRUE(loaded.at(kIdB) == m_other);
            EXPECT_TRUE(IsOneOf(loaded.at(kIdA), {m_old, m_new}));
            if (done) {
                EXPECT_TRUE(loaded.at(kIdA) == m_new);
            }
        });
}

// The new name stands before or behind the old one.
TEST_F(FaultyDisk, RenameLeavesTheOldContentOrTheNewUnderOneOfTheNames)
{
    for (const wchar_t* name : {L"a", L"z", L"M"}) {
        const CDesignSpecification renamed = Make(name, 2, kIdA);
        FailEachInTurn(
            12,
            [&] {
                AddSaved(m_old);
                AddSaved(m_other);
            },
            [&] {
                At(0) = m_new;
                return Library().Folder().Rename(At(0), name).done;
            },
            [&](bool done) {
                const Specifications loaded = Loaded();
                ASSERT_EQ(loaded.size(), 2U);
                EXPECT_TRUE(loaded.at(kIdB) == m_other);
                EXPECT_TRUE(IsOneOf(loaded.at(kIdA), {m_old, m_new, renamed}));
                if (done) {
                    EXPECT_TRUE(loaded.at(kIdA) == renamed);
                }
            });
    }
}

TEST_F(FaultyDisk, SaveAfterAFailedRenameIsWhatIsFound)
{
    const CDesignSpecification renamed = Make(L"a", 3, kIdA);
    FailEachInTurn(
        12, [&] { AddSaved(m_old); }, [&] { return Library().Folder().Rename(At(0), L"a").done; },
        [&](bool) {
            At(0).BeelineLen.MaxLen = 3;
            EXPECT_TRUE(Library().Save(&At(0)));
            EXPECT_TRUE(Loaded().at(kIdA) == renamed);
        });
}

TEST_F(FaultyDisk, SetDefaultItemLeavesTheOldDefaultOrTheNew)
{
    FailEachInTurn(
        10,
        [&] {
            AddSaved(m_old);
            AddSaved(m_other);
            Library().SetDefaultItem(0);
        },
        [&] {
            Library().SetDefaultItem(1);
            return m_trace.Lines().empty();
        },
        [&](bool done) {
            const Specifications loaded = Loaded();
            ASSERT_EQ(loaded.size(), 2U);
            ASSERT_NE(Library().DefaultItem(), nullptr);
            const GUID found = Library().DefaultItem()->ID();
            EXPECT_TRUE(found == m_old.ID() || found == m_other.ID());
            if (done) {
                EXPECT_TRUE(found == m_other.ID());
            }
        });
}

TEST_F(FaultyDisk, SaveAsTemplateLeavesEachFileOldOrNew)
{
    const auto target = [&](const CDesignSpecification& one) { return "template/" + FileOf(one); };
    FailEachInTurn(
        20,
        [&] {
            AddSaved(m_new);
            AddSaved(m_other);
            Library().SetDefaultItem(0);
            m_project.Write(target(m_new), "old");
        },
        [&] { return Library().SaveAsTemplate(m_project.Path(L"template").c_str()); },
        [&](bool done) {
            for (const CDesignSpecification& one : {m_new, m_other}) {
                const std::string source = m_project.Read(FileOf(one));
                const std::string copy =
                    m_project.Has(target(one)) ? m_project.Read(target(one)) : "none";
                EXPECT_TRUE(copy == source || copy == (one == m_new ? "old" : "none"));
                if (done) {
                    EXPECT_EQ(copy, source);
                }
            }
            const Specifications loaded = Loaded();
            EXPECT_TRUE(loaded.at(kIdA) == m_new);
            EXPECT_TRUE(loaded.at(kIdB) == m_other);
        });
}

TEST_F(FaultyDisk, ImportLeavesEachSpecificationOldOrNew)
{
    const CDesignSpecification added = Make(L"added", 7, kIdC);
    FailEachInTurn(
        18,
        [&] {
            AddSaved(m_old);
            AddSaved(m_other);
            m_project.Write("in.hds", Envelope(Style("m", kIdA, 2) + Style("added", kIdC, 7)));
        },
        [&] { return Library().Folder().Import(m_project.Path(L"in.hds"), {}, true).done; },
        [&](bool done) {
            const Specifications loaded = Loaded();
            ASSERT_TRUE(loaded.contains(kIdA));
            EXPECT_TRUE(loaded.at(kIdB) == m_other);
            EXPECT_TRUE(IsOneOf(loaded.at(kIdA), {m_old, m_new}));
            if (loaded.at(kIdA) == m_new) {
                EXPECT_FALSE(Deleted().empty()) << "what was overwritten";
            }
            if (loaded.contains(kIdC)) {
                EXPECT_TRUE(loaded.at(kIdC) == added);
            }
            if (done) {
                EXPECT_TRUE(loaded.at(kIdA) == m_new);
                EXPECT_TRUE(loaded.contains(kIdC));
            }
        });
}

TEST_F(FaultyDisk, DeletingKeepsTheSpecificationHereOrThere)
{
    FailEachInTurn(
        6,
        [&] {
            AddSaved(m_old);
            AddSaved(m_other);
        },
        [&] {
            Library().Remove(0, true);
            return SetAside(m_old.ID());
        },
        [&](bool done) {
            const Specifications loaded = Loaded();
            EXPECT_TRUE(loaded.at(kIdB) == m_other);
            if (loaded.contains(kIdA)) {
                EXPECT_TRUE(loaded.at(kIdA) == m_old);
                EXPECT_FALSE(done);
                return;
            }
            const auto deleted = Deleted();
            ASSERT_EQ(deleted.size(), 1U);
            EXPECT_EQ(deleted[0].id, m_old.ID());
        });
}

TEST_F(FaultyDisk, DeletingOutOfAFileOfSeveralKeepsTheSpecificationHereOrThere)
{
    FailEachInTurn(
        10,
        [&] {
            m_project.Write("规范/两个.hds",
                            Envelope(Style("m", kIdA, 1) + Style("other", kIdB, 5)));
            Reload();
        },
        [&] { return SetAside(m_old.ID()); },
        [&](bool) {
            const Specifications loaded = Loaded();
            EXPECT_TRUE(loaded.at(kIdB) == m_other);
            EXPECT_TRUE(loaded.contains(kIdA) || !Deleted().empty());
        });
}

TEST_F(FaultyDisk, BringingBackKeepsTheSpecificationHereOrThere)
{
    CString file;
    FailEachInTurn(
        3,
        [&] {
            AddSaved(m_old);
            ASSERT_TRUE(SetAside(m_old.ID()));
            file = Deleted().at(0).file;
        },
        [&] { return BringBack(file); },
        [&](bool done) {
            const Specifications loaded = Loaded();
            EXPECT_NE(loaded.contains(kIdA), Deleted().size() == 1);
            if (done) {
                EXPECT_TRUE(loaded.at(kIdA) == m_old);
            }
        });
}

// What cannot be seen may be there all the same: it is not begun anew.
TEST_F(FaultyDisk, ExportKeepsWhatElseTheFileHolds)
{
    FailEachInTurn(
        8,
        [&] {
            Add(m_new);
            m_project.Write("out.hds", Envelope(Style("m", kIdA, 1) + Style("other", kIdB, 5)));
        },
        [&] { return Library().Export(m_project.Path(L"out.hds").c_str(), {}, nullptr); },
        [&](bool done) {
            CDesignSpecifications::Destroy();
            ASSERT_TRUE(Library().Import(m_project.Path(L"out.hds").c_str(), {}, nullptr, true));
            ASSERT_EQ(Library().Count(), 2);
            EXPECT_TRUE(At(1) == m_other);
            EXPECT_TRUE(IsOneOf(At(0), {m_old, m_new}));
            if (done) {
                EXPECT_TRUE(At(0) == m_new);
            }
        });
}

TEST_F(FaultyDisk, SettingTheDefaultKeepsTheOtherSettings)
{
    constexpr char kOther[] = "[其它]\r\n键=值\r\n";
    FailEachInTurn(
        8,
        [&] {
            AddSaved(m_old);
            m_project.Write("规范/setting.ini", kOther);
        },
        [&] {
            Library().SetDefaultItem(0);
            return m_trace.Lines().empty();
        },
        [&](bool) { EXPECT_TRUE(m_project.Read("规范/setting.ini").starts_with(kOther)); });
}

TEST_F(FaultyDisk, SavingKeepsWhatCouldNotBeReadBefore)
{
    const std::string file = FileOf(m_old);
    const std::string bad = "<Style Name='bad'><BeelineLen MaxLen='x'/></Style>";
    FailEachInTurn(
        16,
        [&] {
            m_project.Write(file, Envelope(Style("m", kIdA, 1) + bad));
            Reload();
        },
        [&] {
            At(0) = m_new;
            return Library().Save(&At(0));
        },
        [&](bool done) {
            const Specifications loaded = Loaded();
            EXPECT_TRUE(IsOneOf(loaded.at(kIdA), {m_old, m_new}));
            if (done) {
                EXPECT_TRUE(loaded.at(kIdA) == m_new);
            }
            EXPECT_NE(m_trace.Text().find(L"样式“bad”未载入"), CString::npos);
        });
}

TEST_F(FaultyDisk, RemovingTheBracedFileLosesNothingThatStandsInIt)
{
    FailEachInTurn(
        12,
        [&] {
            m_project.Write(std::string("规范/m{") + kIdA + "}.hds",
                            Envelope(Style("other", kIdB, 5) + Style("m", kIdA, 1)));
            Reload();
        },
        [&] {
            Library().Remove(1, true);
            const Inside inside;
            return !m_project.Has(std::string("规范/m{") + kIdA + "}.hds");
        },
        [&](bool done) {
            const Specifications loaded = Loaded();
            EXPECT_TRUE(loaded.at(kIdB) == m_other);
            if (done) {
                EXPECT_FALSE(loaded.contains(kIdA));
            }
            if (!loaded.contains(kIdA)) {
                ASSERT_EQ(Deleted().size(), 1U);
                EXPECT_EQ(Deleted()[0].id, m_old.ID());
            }
        });
}

TEST_F(FaultyDisk, AFileIsFlushedOnceBeforeItHasItsName)
{
    g_temporaries = {};
    AddSaved(m_old);
    EXPECT_EQ(g_temporaries.flushed, 1);
}

// Some disks tell only then that they are full.
TEST_F(FaultyDisk, AFileThatCannotBeClosedDoesNotGetItsName)
{
    AddSaved(m_old);
    At(0) = m_new;
    g_temporaries.closeError = ENOSPC;
    const bool saved = Library().Save(&At(0));
    g_temporaries.closeError = 0;
    EXPECT_FALSE(saved);
    EXPECT_TRUE(Traced(FileOf(m_old), 0, L"无法写入: 磁盘空间不足"));
    EXPECT_TRUE(Loaded().at(kIdA) == m_old);
}

// Some file systems cannot flush a folder: a file there is as safe as it can be.
TEST_F(FaultyDisk, AFolderThatCannotBeFlushedIsNoError)
{
    g_flushes = {EINVAL, {}};
    const bool saved = Library().Save(&Add(m_old));
    g_flushes.error = EIO;
    const bool savedAfterAll = Library().Save(&At(0));
    g_flushes.error = 0;
    EXPECT_TRUE(saved);
    EXPECT_FALSE(savedAfterAll);
    EXPECT_TRUE(Traced(FileOf(m_old), 0, L"无法写入: 读写出错"));
    EXPECT_TRUE(Loaded().at(kIdA) == m_old);
}

TEST_F(FaultyDisk, AFileThatMovesIsFlushedOutOfOneFolderAndIntoTheOther)
{
    const fs::path library = m_project.Native("规范");
    const std::set<fs::path> both = {library, library / "已删除"};
    AddSaved(m_old);
    fs::create_directory(library / "已删除");
    g_flushes = {};
    ASSERT_TRUE(SetAside(m_old.ID()));
    EXPECT_EQ(g_flushes.folders, both);
    g_flushes = {};
    ASSERT_TRUE(BringBack(Deleted().at(0).file));
    EXPECT_EQ(g_flushes.folders, both);
}

TEST_F(FaultyDisk, AFullDiskIsToldWithTheFile)
{
    AddSaved(m_old);
    At(0) = m_new;
    int told = 0;
    for (int at = 1; at <= 16; ++at) {
        m_trace.Clear();
        g_fault = {true, at, ENOSPC, Failing::Once, 0};
        const bool done = Library().Save(&At(0));
        g_fault.armed = false;
        if (done) continue;
        EXPECT_TRUE(Traced(FileOf(m_old), 0, L"磁盘空间不足") ||
                    Traced("规范/.lock", 0, L"无法加锁: 磁盘空间不足"))
            << at << ToUtf8(m_trace.Text());
        EXPECT_EQ(TemporaryFiles(), 0);
        ++told;
    }
    EXPECT_GE(told, 6);
}
