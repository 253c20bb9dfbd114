#include "base/linux/FileAccess.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include <linux/posix_acl.h>
#include <linux/posix_acl_xattr.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace designspec {

namespace {

constexpr char kListName[] = "system.posix_acl_access";

// What a file system does not know, or the caller may not set, stays as it is.
bool IsRefusal(int error)
{
    return error == EPERM || error == EACCES || error == ENOTSUP || error == ENOSYS ||
           error == ENODATA || error == EINVAL || error == ERANGE || error == E2BIG;
}

// 0 or the error number; 0 as well when the system does not let the caller.
int Allowing(int result)
{
    return result >= 0 || IsRefusal(errno) ? 0 : errno;
}

struct Entry {
    std::uint16_t tag, perm;
    std::uint32_t id;
};

// The access control list of a file, in the form that Linux keeps it in (little-endian).
class AccessList {
public:
    explicit AccessList(mode_t mode)
        : m_entries{{ACL_USER_OBJ, static_cast<std::uint16_t>(mode >> 6 & 7), kNoId},
                    {ACL_GROUP_OBJ, static_cast<std::uint16_t>(mode >> 3 & 7), kNoId},
                    {ACL_OTHER, static_cast<std::uint16_t>(mode & 7), kNoId}}
    {
    }

    // Takes the list of the file; 0 or an error number.
    int Load(const std::string& path)
    {
        std::string bytes(64 << 10, '\0'); // the most that there can be
        const ssize_t size = getxattr(path.c_str(), kListName, bytes.data(), bytes.size());
        if (size < 0) return Allowing(-1);
        constexpr size_t kHead = sizeof(posix_acl_xattr_header);
        constexpr size_t kOne = sizeof(posix_acl_xattr_entry);
        m_entries.clear();
        for (size_t at = kHead; at + kOne <= static_cast<size_t>(size); at += kOne) {
            posix_acl_xattr_entry one;
            std::memcpy(&one, bytes.data() + at, kOne);
            m_entries.push_back({le16toh(one.e_tag), le16toh(one.e_perm), le32toh(one.e_id)});
        }
        ApplyMask();
        return 0;
    }

    bool IsSimple() const { return m_entries.size() == 3; }
    // What it says without the entries that have a name.
    mode_t Mode() const
    {
        return static_cast<mode_t>(Find(ACL_USER_OBJ) << 6 | Find(ACL_GROUP_OBJ) << 3 |
                                   Find(ACL_OTHER));
    }

    // The file's own owner becomes a named one, with what he could do.
    void NameOwner(uid_t owner) { Name(ACL_USER, owner, Find(ACL_USER_OBJ)); }
    // The file's own group likewise; the new one of the file gets no more than anybody.
    void NameGroup(gid_t group)
    {
        Name(ACL_GROUP, group, Find(ACL_GROUP_OBJ));
        const std::uint16_t other = Find(ACL_OTHER);
        for (Entry& entry : m_entries)
            if (entry.tag == ACL_GROUP_OBJ) entry.perm = other;
    }

    int Set(int fd)
    {
        std::uint16_t mask = 0;
        for (const Entry& entry : m_entries)
            if (entry.tag != ACL_USER_OBJ && entry.tag != ACL_OTHER) mask |= entry.perm;
        m_entries.push_back({ACL_MASK, mask, kNoId});
        std::sort(m_entries.begin(), m_entries.end(), [](const Entry& a, const Entry& b) {
            return a.tag != b.tag ? a.tag < b.tag : a.id < b.id;
        });
        const posix_acl_xattr_header head = {htole32(POSIX_ACL_XATTR_VERSION)};
        std::string bytes(reinterpret_cast<const char*>(&head), sizeof head);
        for (const Entry& entry : m_entries) {
            const posix_acl_xattr_entry one = {htole16(entry.tag), htole16(entry.perm),
                                               htole32(entry.id)};
            bytes.append(reinterpret_cast<const char*>(&one), sizeof one);
        }
        return Allowing(fsetxattr(fd, kListName, bytes.data(), bytes.size(), 0));
    }

private:
    static constexpr std::uint32_t kNoId = static_cast<std::uint32_t>(ACL_UNDEFINED_ID);

    // Says in each entry what it really allows.
    void ApplyMask()
    {
        const auto isMask = [](const Entry& entry) { return entry.tag == ACL_MASK; };
        const auto mask = std::find_if(m_entries.begin(), m_entries.end(), isMask);
        if (mask == m_entries.end()) return;
        const std::uint16_t allowed = mask->perm;
        m_entries.erase(mask);
        for (Entry& entry : m_entries)
            if (entry.tag != ACL_USER_OBJ && entry.tag != ACL_OTHER) entry.perm &= allowed;
    }

    std::uint16_t Find(std::uint16_t tag) const
    {
        for (const Entry& entry : m_entries)
            if (entry.tag == tag) return entry.perm;
        return 0;
    }

    void Name(std::uint16_t tag, std::uint32_t id, std::uint16_t perm)
    {
        for (Entry& entry : m_entries) {
            if (entry.tag != tag || entry.id != id) continue;
            entry.perm |= perm;
            return;
        }
        m_entries.push_back({tag, perm, id});
    }

    std::vector<Entry> m_entries; // without a mask
};

// The attributes that users and the system's security keep on the file, without its list.
int GiveAttributes(const std::string& path, int fd)
{
    std::string names(64 << 10, '\0'); // the most that there can be
    const ssize_t size = listxattr(path.c_str(), names.data(), names.size());
    if (size < 0) return Allowing(-1);
    std::string_view rest(names.data(), static_cast<size_t>(size));
    std::string value(64 << 10, '\0');
    while (!rest.empty()) {
        const std::string name(rest.substr(0, rest.find('\0')));
        rest.remove_prefix(name.size() + 1);
        if (name.starts_with("system.")) continue;
        const ssize_t length = getxattr(path.c_str(), name.c_str(), value.data(), value.size());
        const int error = length < 0 ? Allowing(-1)
                                     : Allowing(fsetxattr(fd, name.c_str(), value.data(),
                                                          static_cast<size_t>(length), 0));
        if (error != 0) return error;
    }
    return 0;
}

} // namespace

int GiveAccessOf(const std::string& path, int fd)
{
    struct stat wanted = {};
    struct stat given = {};
    if (stat(path.c_str(), &wanted) != 0) return errno == ENOENT || errno == ENOTDIR ? 0 : errno;
    if (!S_ISREG(wanted.st_mode)) return 0;
    if (fstat(fd, &given) != 0) return errno;

    AccessList list(wanted.st_mode);
    if (const int error = list.Load(path)) return error;
    if (given.st_uid != wanted.st_uid && fchown(fd, wanted.st_uid, static_cast<gid_t>(-1)) != 0) {
        if (!IsRefusal(errno)) return errno;
        list.NameOwner(wanted.st_uid);
    }
    if (given.st_gid != wanted.st_gid && fchown(fd, static_cast<uid_t>(-1), wanted.st_gid) != 0) {
        if (!IsRefusal(errno)) return errno;
        list.NameGroup(wanted.st_gid);
    }
    // A list that the folder hands down to new files goes first.
    if (const int error = Allowing(fremovexattr(fd, kListName))) return error;
    if (fchmod(fd, list.Mode()) != 0) return errno;
    if (const int error = list.IsSimple() ? 0 : list.Set(fd)) return error;
    return GiveAttributes(path, fd);
}

} // namespace designspec
