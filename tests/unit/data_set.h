// The shipped files in the shape in which tests need them, and the real data folders, emptied for a test.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace unit {

/// Small shipped files for a common folder: texts, switches, empty teacher files, a stand-alone KSUserInfo.ini.
void WriteShippedFiles(const std::filesystem::path& commonFolder);

/// One lesson's section in the shape that the program writes: a title and tasks of kind 1.
std::string LessonSection(int number, const std::string& title, const std::vector<std::string>& tasks);
/// A lesson file of these lessons, each with a title and one task.
std::string LessonFile(const std::vector<std::string>& titles);

/// A test in the special folders of the shell, where Keystride's folders are emptied before and after. Only under Wine:
/// a real user's data lie there.
class RealFoldersTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    static std::filesystem::path RealUserFolder();
    static std::filesystem::path RealCommonFolder();
};

}  // namespace unit
