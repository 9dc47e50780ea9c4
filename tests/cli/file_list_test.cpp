#include "cli/io/file_list.h"

#include "cli/io/failure.h"

#include <gtest/gtest.h>

#include <unistd.h>
#include <filesystem>
#include <fstream>

namespace vantro {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using Names = std::vector<std::string>;

class FilesOfFolders : public testing::Test {
protected:
    void SetUp() override {
        fs::remove_all(folder_);
        for (const char* name : {"b/c", ".git", "empty"}) fs::create_directories(folder_ / name);
        for (const char* name : {"b/c/3.txt", "b/2.txt", "a.txt", ".hidden", ".git/index"}) {
            std::ofstream(folder_ / name).close();
        }
    }
    void TearDown() override { fs::remove_all(folder_); }

    std::string in(const std::string& name) const { return (folder_ / name).string(); }

    const fs::path folder_ = fs::temp_directory_path() / ("vantro-files-" + std::to_string(::getpid()));
};

TEST_F(FilesOfFolders, AreThoseInAllFoldersBelowInOrderWithoutHiddenOnes) {
    EXPECT_EQ(withFilesOfFolders({folder_.string()}), (Names{in("a.txt"), in("b/2.txt"), in("b/c/3.txt")}));
}

TEST_F(FilesOfFolders, OtherArgumentsStayInTheirPlaces) {
    EXPECT_EQ(withFilesOfFolders({"-", in("b/c"), "no such file"}), (Names{"-", in("b/c/3.txt"), "no such file"}));
    EXPECT_EQ(withFilesOfFolders({}), Names{});
}

TEST_F(FilesOfFolders, AFolderWithoutFilesIsAnError) {
    try {
        withFilesOfFolders({in("empty")});
        FAIL();
    } catch (const UsageError& problem) {
        EXPECT_EQ(problem.what(), "the folder '" + in("empty") + "' contains no file");
    }
}

TEST(NamesInList, AreItsLinesOrEndInZeroBytes) {
    EXPECT_EQ(namesInList("a.txt\nb c.txt\r\n\n d\n", false), (Names{"a.txt", "b c.txt", " d"}));
    EXPECT_EQ(namesInList("a.txt", false), Names{"a.txt"});
    EXPECT_EQ(namesInList("a\nb.txt\0c\r\0\0"s, true), (Names{"a\nb.txt", "c\r"}));
    EXPECT_EQ(namesInList("", true), Names{});
}

}  // namespace
}  // namespace vantro
