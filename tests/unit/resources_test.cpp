// What Windows shows of the program file: its version, its maker, and its icon in every size.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "resource_ids.h"
#include "win32/windows_api.h"

namespace unit {
namespace {

std::vector<unsigned char> Resource(const wchar_t* name, const wchar_t* type) {
    const HRSRC found = FindResourceW(nullptr, name, type);
    if (found == nullptr) return {};
    const auto* bytes = static_cast<const unsigned char*>(LockResource(LoadResource(nullptr, found)));
    return {bytes, bytes + SizeofResource(nullptr, found)};
}

std::wstring VersionText(const std::wstring& name) {
    const auto block = Resource(MAKEINTRESOURCEW(VS_VERSION_INFO), RT_VERSION);
    void* text = nullptr;
    UINT length = 0;
    const std::wstring path = L"\\StringFileInfo\\040904B0\\" + name;
    if (block.empty() || VerQueryValueW(block.data(), path.c_str(), &text, &length) == FALSE) return L"(none)";
    return static_cast<const wchar_t*>(text);
}

TEST(Resources, VersionNamesProductAndCompany) {
    EXPECT_EQ(VersionText(L"CompanyName"), L"Brightfield");
    EXPECT_EQ(VersionText(L"ProductName"), L"Keystride");
    EXPECT_EQ(VersionText(L"FileDescription"), L"Keystride Typing tutor");
    EXPECT_EQ(VersionText(L"OriginalFilename"), L"keystride.exe");
    EXPECT_EQ(VersionText(L"InternalName"), L"keystride");
    EXPECT_EQ(VersionText(L"ProductVersion"), VersionText(L"FileVersion"));
}

TEST(Resources, VersionNumbersAreThoseOfTheText) {
    const auto block = Resource(MAKEINTRESOURCEW(VS_VERSION_INFO), RT_VERSION);
    void* fixed = nullptr;
    UINT length = 0;
    ASSERT_NE(VerQueryValueW(block.data(), L"\\", &fixed, &length), FALSE);
    const auto& info = *static_cast<const VS_FIXEDFILEINFO*>(fixed);
    const std::wstring numbers = std::to_wstring(HIWORD(info.dwFileVersionMS)) + L"." +
                                 std::to_wstring(LOWORD(info.dwFileVersionMS)) + L"." +
                                 std::to_wstring(HIWORD(info.dwFileVersionLS));
    EXPECT_EQ(VersionText(L"FileVersion"), numbers);
    EXPECT_EQ(info.dwProductVersionMS, info.dwFileVersionMS);
    EXPECT_EQ(info.dwProductVersionLS, info.dwFileVersionLS);
    EXPECT_EQ(info.dwFileType, static_cast<DWORD>(VFT_APP));
}

TEST(Resources, IconHasEverySizeThatWindowsShows) {
    const auto group = Resource(MAKEINTRESOURCEW(IDI_KEYSTRIDE), RT_GROUP_ICON);
    constexpr std::size_t kHead = 6;
    constexpr std::size_t kEntry = 14;
    std::set<int> sizes;
    for (std::size_t at = kHead; at + kEntry <= group.size(); at += kEntry) {
        // A size of 256 does not fit the byte and stands there as 0.
        sizes.insert(group[at] == 0 ? 256 : group[at]);
        EXPECT_EQ(group[at], group[at + 1]) << "the icon is not square";
        EXPECT_EQ(group[at + 6] + group[at + 7] * 256, 32) << "bits a pixel, for its transparency";
        const int image = group[at + 12] + group[at + 13] * 256;
        EXPECT_FALSE(Resource(MAKEINTRESOURCEW(image), RT_ICON).empty());
    }
    for (const int size : {16, 20, 24, 32, 40, 48, 64, 256}) EXPECT_TRUE(sizes.contains(size)) << size;
}

}  // namespace
}  // namespace unit
