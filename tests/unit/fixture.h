// What every test with files starts from: a fresh folder that stands in for the user's and the common data folder.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "support/test_files.h"
#include "win32/error.h"

namespace unit {

using test_files::HeldFile;
using test_files::ReadBytes;
using test_files::Snapshot;
using test_files::WriteBytes;

bool RunsUnderWine();

/// Gives the session state the values that it has when the program starts.
void ResetSession();
/// Sets the language switches as the value of "Language" does.
void SetLanguage(int language);

/// The error that `run` raises; a test failure and an error of number 0 when it raises none.
template <typename Run>
win32::AppError RaisedBy(const Run& run) {
    try {
        run();
    } catch (const win32::AppError& error) {
        return error;
    } catch (const std::exception& error) {
        ADD_FAILURE() << "another error was raised: " << error.what();
        return {0, L"", L""};
    }
    ADD_FAILURE() << "no error was raised";
    return {0, L"", L""};
}

/// Expects that `run` tells of `file`, which another program keeps to itself, with `source` as the error's source.
template <typename Run>
void ExpectUnreadable(const std::wstring& file, const wchar_t* source, const Run& run) {
    const win32::AppError error = RaisedBy(run);
    EXPECT_EQ(error.Source(), source);
    EXPECT_TRUE(error.Description().starts_with(L"File " + file + L" could not be read. "));
}

/// A test in a folder of its own, to which all file names of the session point; the folder is removed afterwards.
class FolderTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    [[nodiscard]] const std::filesystem::path& Folder() const { return folder_; }
    /// Where the session's user and common folder are; neither exists at first.
    [[nodiscard]] std::filesystem::path UserFolder() const;
    [[nodiscard]] std::filesystem::path CommonFolder() const;
    /// A folder that stands for the school's shared one; it does not exist at first.
    [[nodiscard]] std::filesystem::path NetworkFolder() const { return folder_ / L"network"; }

    /// Writes the bytes to a file of a name that this process never used: the system keeps what it read of a file.
    std::wstring NewFile(std::string_view bytes);
    std::wstring NewName();

    /// Names the network folder, with what the caller puts behind it, in KSUserInfo.ini.
    void SetNetwork(std::string_view ending = "") const;

private:
    std::filesystem::path folder_;
};

}  // namespace unit
