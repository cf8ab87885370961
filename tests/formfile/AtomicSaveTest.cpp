#include "formfile/FormFile.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace quillmar {
namespace {

namespace fs = std::filesystem;

std::string Contents(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

void Write(const fs::path& path, std::string_view text) {
    std::ofstream(path, std::ios::binary) << text;
}

fs::perms Permissions(const fs::path& path) {
    return fs::status(path).permissions();
}

std::vector<std::string> Names(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

// A folder of its own for each case, holding "old.json" with the text "old".
class AtomicSave : public ::testing::Test {
protected:
    void SetUp() override {
        folder = fs::temp_directory_path()
            / ("quillmar-save-" + std::to_string(::getpid()) + "-"
                + ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(folder);
        fs::create_directories(folder);
        Write(folder / "old.json", "old");
    }
    void TearDown() override { fs::remove_all(folder); }

    fs::path folder;
};

const FormDocument kForm { u"T", 10, 10, {} };

TEST_F(AtomicSave, AFailedSaveNamesTheFileKeepsTheOldOneAndLeavesNothingBehind) {
    fs::create_directory(folder / "sub");
    const struct {
        const char* name;
        fs::path path; // relative to the folder
        std::string reason;
        BeforeCommitHook beforeCommit;
    } cases[] = {
        { "no such folder", "missing/f.json", "cannot create a temporary file in ", {} },
        { "the folder is a file", "old.json/f.json", "cannot create a temporary file in ", {} },
        { "a folder stands at the path", "sub", "cannot put the new file in place: ", {} },
        { "the temporary file is gone at the rename", "old.json",
            "cannot put the new file in place: ", [](const fs::path& temporary) { fs::remove(temporary); } },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const fs::path path = folder / c.path;
        const auto error = SaveFormFile(path, kForm, c.beforeCommit);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->rfind(path.string() + ": cannot be written: " + c.reason, 0), 0u) << *error;
        EXPECT_EQ(Contents(folder / "old.json"), "old");
        EXPECT_EQ(Names(folder), (std::vector<std::string> { "old.json", "sub" }));
    }
}

TEST_F(AtomicSave, TheSavedFileKeepsTheOldOnesPermissionsAndLinks) {
    const mode_t oldMask = ::umask(027);
    fs::permissions(folder / "old.json", fs::perms(0604));
    fs::create_symlink("old.json", folder / "link.json");
    const struct {
        const char* name;
        const char* path;
        const char* written; // the file that receives the text
        fs::perms permissions;
    } cases[] = {
        { "an existing file keeps its permissions", "old.json", "old.json", fs::perms(0604) },
        { "a new file gets 0666 less the umask", "new.json", "new.json", fs::perms(0640) },
        { "a link stays a link and its file is replaced", "link.json", "old.json", fs::perms(0604) },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string text = std::string("saved as ") + c.path + "\n";
        EXPECT_EQ(ReplaceFileAtomically(folder / c.path, text), std::nullopt);
        EXPECT_EQ(Contents(folder / c.written), text);
        EXPECT_EQ(Permissions(folder / c.written), c.permissions);
    }
    ::umask(oldMask);
    EXPECT_TRUE(fs::is_symlink(folder / "link.json"));
    EXPECT_EQ(Names(folder), (std::vector<std::string> { "link.json", "new.json", "old.json" }));
}

} // namespace
} // namespace quillmar
