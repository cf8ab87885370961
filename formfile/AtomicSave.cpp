#include "formfile/AtomicSave.h"

#include "formfile/FaultLine.h"
#include "formfile/FormJson.h"

#include <cerrno>
#include <charconv>
#include <fstream>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillmar {
namespace {

std::string Reason(std::string_view what, int error) {
    return std::string(what) + ": " + std::system_category().message(error);
}

// The file a save replaces: `path`, or the file its chain of symbolic links leads to, so that a link stays
// a link. A chain that never ends is left to fail at the rename.
std::filesystem::path FileToReplace(const std::filesystem::path& path) {
    constexpr int kMaxLinks = 40;
    std::filesystem::path file = path;
    std::error_code code;
    for (int links = 0; links < kMaxLinks; ++links) {
        if (!std::filesystem::is_symlink(file, code)) return file;
        const std::filesystem::path target = std::filesystem::read_symlink(file, code);
        if (code) return file;
        file = target.is_absolute() ? target : file.parent_path() / target;
    }
    return path;
}

// The permissions a newly created file gets: 0666 less the umask. Linux shows the umask in /proc; reading
// it anywhere else means setting it for a moment.
mode_t NewFileMode() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (!line.starts_with("Umask:")) continue;
        const size_t digits = line.find_first_not_of(" \t", 6);
        unsigned mask = 0;
        if (digits != std::string::npos
            && std::from_chars(line.data() + digits, line.data() + line.size(), mask, 8).ec == std::errc())
            return static_cast<mode_t>(0666 & ~mask);
        break;
    }
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return static_cast<mode_t>(0666 & ~mask);
}

// The temporary file of one save: closed when the save ends, and removed unless it became the saved file.
class TemporaryFile {
public:
    TemporaryFile(std::string path, int descriptor)
        : m_path(std::move(path))
        , m_descriptor(descriptor) { }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (m_descriptor >= 0) ::close(m_descriptor);
        if (!m_kept) ::unlink(m_path.c_str());
    }

    [[nodiscard]] const std::string& Path() const noexcept { return m_path; }
    [[nodiscard]] int Descriptor() const noexcept { return m_descriptor; }
    [[nodiscard]] bool Close() noexcept {
        const int result = ::close(m_descriptor);
        m_descriptor = -1;
        return result == 0;
    }
    void Keep() noexcept { m_kept = true; }

private:
    std::string m_path;
    int m_descriptor;
    bool m_kept = false;
};

[[nodiscard]] bool WriteAll(int descriptor, std::string_view contents) {
    while (!contents.empty()) {
        const ssize_t written = ::write(descriptor, contents.data(), contents.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        if (written == 0) {
            errno = EIO; // a regular file that takes nothing and says nothing
            return false;
        }
        contents.remove_prefix(static_cast<size_t>(written));
    }
    return true;
}

// Makes a rename in `folder` last. Some file systems cannot sync a folder at all; their renames are then as
// lasting as they make them.
[[nodiscard]] std::optional<std::string> SyncFolder(const std::filesystem::path& folder) {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return Reason("the new file is in place, but its folder cannot be synced", errno);
    const int synced = ::fsync(descriptor);
    const int error = errno;
    ::close(descriptor);
    if (synced != 0 && error != EINVAL && error != ENOTSUP)
        return Reason("the new file is in place, but its folder cannot be synced", error);
    return std::nullopt;
}

} // namespace

std::optional<std::string> ReplaceFileAtomically(
    const std::filesystem::path& path, std::string_view contents, const BeforeCommitHook& beforeCommit) {
    const std::filesystem::path file = FileToReplace(path);
    const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
    std::string pattern = (folder / ("." + file.filename().string() + ".XXXXXX")).string();
    const int descriptor = ::mkstemp(pattern.data());
    if (descriptor < 0) return Reason("cannot create a temporary file in " + folder.string(), errno);
    TemporaryFile temporary(std::move(pattern), descriptor);
    ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);

    // mkstemp makes the file private to its owner; the saved file keeps the old one's permissions.
    struct stat old { };
    const mode_t mode = ::stat(file.c_str(), &old) == 0 ? (old.st_mode & 07777) : NewFileMode();
    if (::fchmod(descriptor, mode) != 0) return Reason("cannot set the temporary file's permissions", errno);
    if (!WriteAll(descriptor, contents)) return Reason("cannot write the temporary file", errno);
    if (::fsync(descriptor) != 0) return Reason("cannot sync the temporary file", errno);
    if (!temporary.Close()) return Reason("cannot close the temporary file", errno);
    if (beforeCommit) beforeCommit(temporary.Path());
    if (::rename(temporary.Path().c_str(), file.c_str()) != 0)
        return Reason("cannot put the new file in place", errno);
    temporary.Keep();
    return SyncFolder(folder);
}

std::optional<std::string> SaveFormFile(
    const std::filesystem::path& path, const FormDocument& document, const BeforeCommitHook& beforeCommit) {
    const std::string source = path.string();
    if (auto reason = ReplaceFileAtomically(path, FormToJson(document), beforeCommit))
        return formtext::Location { source, {}, {} }.Line("cannot be written: " + *reason);
    return std::nullopt;
}

} // namespace quillmar
