// File helpers that the whole program shares.
#include "shell/modUtils.h"

#include <algorithm>
#include <array>

#include "shell/modGlobals.h"
#include "win32/files.h"
#include "win32/profile.h"
#include "win32/text.h"

namespace modUtils {

using namespace modGlobals;

namespace {

constexpr wchar_t kMainSection[] = L"Main";
constexpr wchar_t kUserSection[] = L"Current User";
constexpr wchar_t kUserDataKey[] = L"UserData";
constexpr wchar_t kStudentRecords[] = L"Student Records";
constexpr wchar_t kLineBreak[] = L"\r\n";

/// A caption: line breaks restored, blanks trimmed.
std::wstring ReadCaption(const std::wstring& file, std::wstring_view section, std::wstring_view key,
                         std::wstring_view defaultText, std::wstring_view source) {
    RequireFile(file, source);
    const std::wstring value = win32::profile::ReadString(file, section, key, defaultText);
    return win32::TrimBlanks(win32::ReplaceAll(value, gLineBreakMark, kLineBreak));
}

/// The network folder without the backslash that a school may have written at its end; "" when there is none.
std::wstring NetworkFolder() {
    if (!isNetworkVersion()) return {};
    std::wstring folder = GetNetworkDataPath();
    if (!folder.empty() && folder.back() == L'\\') folder.pop_back();
    return folder;
}

/// Copies the learner's folder between two Student Records folders, when the network has one for the learner.
bool CopyStudentRecords(bool fromNetwork) {
    const auto learner = LearnerFolderName(gUserName);
    const std::wstring network = NetworkFolder();
    if (!learner || network.empty()) return false;
    const std::wstring networkRecords = network + L"\\" + kStudentRecords;
    if (!FolderExists(networkRecords + L"\\" + *learner)) return false;
    std::wstring source = (fromNetwork ? networkRecords : gStudentRecordsPath) + L"\\" + *learner;
    return CopyPath(source, fromNetwork ? gStudentRecordsPath : networkRecords);
}

bool PutFileToNetwork(std::wstring file) {
    const std::wstring network = NetworkFolder();
    return !network.empty() && FolderExists(network) && FileExists(file) && CopyPath(file, network);
}

/// Whether a folder name would reach a device: the part before the first full stop counts, whatever follows.
bool IsDeviceName(std::wstring_view name) {
    static constexpr std::array<std::wstring_view, 6> kDevices{L"CON", L"PRN", L"AUX", L"NUL", L"CONIN$", L"CONOUT$"};
    static constexpr std::wstring_view kPortDigits = L"123456789\u00b9\u00b2\u00b3";
    std::wstring base = win32::TrimBlanks(name.substr(0, name.find(L'.')));
    std::transform(base.begin(), base.end(), base.begin(),
                   [](wchar_t c) { return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c; });
    if (std::find(kDevices.begin(), kDevices.end(), base) != kDevices.end()) return true;
    return base.size() == 4 && (base.starts_with(L"COM") || base.starts_with(L"LPT")) &&
           kPortDigits.find(base.back()) != std::wstring_view::npos;
}

}  // namespace

bool FolderExists(const std::wstring& path) { return win32::files::IsFolder(path); }

bool FileExists(const std::wstring& path) { return win32::files::IsFile(path); }

win32::AppError FileNotFound(const std::wstring& path, std::wstring_view source) {
    // No blank stands before "not found.": listeners know the text so.
    return {kFileNotFoundNumber, std::wstring(source), L"File " + path + L"not found."};
}

void RequireFile(const std::wstring& path, std::wstring_view source) {
    if (!FileExists(path)) throw FileNotFound(path, source);
    win32::files::RequireReadable(path, source);
}

std::wstring ZeroPad(std::int16_t number, std::size_t width) {
    std::wstring digits = std::to_wstring(number);
    if (digits.size() < width) digits.insert(0, width - digits.size(), L'0');
    return digits;
}

std::wstring ReadTrimmed(const std::wstring& file, std::wstring_view section, std::wstring_view key,
                         std::wstring_view defaultText) {
    return win32::TrimBlanks(win32::profile::ReadString(file, section, key, defaultText));
}

std::wstring LoadLabel1Text(const std::wstring& file, std::wstring_view section, bool useDefault) {
    return ReadCaption(file, section, useDefault ? L"DefSingleRow" : L"SingleRow", L"singlerow caption not found",
                       L"LoadLabel1Text");
}

std::wstring LoadMultiRowText(const std::wstring& file, std::wstring_view /*section*/, bool useDefault) {
    return ReadCaption(file, kMainSection, useDefault ? L"DefMultiRow" : L"MultiRow", L"caption not found",
                       L"LoadLabel1Text");
}

std::wstring LoadInstructionsCaption(const std::wstring& file, std::wstring_view section) {
    return ReadCaption(file, section, L"MultiRow", L"instructions not found", L"LoadInstructionsCaption");
}

bool SaveUserPath(const std::wstring& file) {
    constexpr wchar_t kSource[] = L"SaveUserPath";
    RequireFile(file, kSource);
    if (ReadTrimmed(file, kUserSection, kUserDataKey, L"") != gUserDataPath)
        win32::profile::WriteString(file, kUserSection, kUserDataKey, gUserDataPath, kSource);
    return false;
}

void ReadKeystrideIni() {
    RequireFile(gKeystrideIni, L"ReadKeystrideIni");
    const auto language = win32::profile::ReadInt16(gKeystrideIni, kUserSection, L"Language");
    gLanguageOne = language == 1;
    gLanguageTwo = language == 2;
    gLanguageDefault = !gLanguageOne;
    gAdult = win32::profile::ReadInt16(gKeystrideIni, kUserSection, L"Adult") == 1;
    gMAGic = win32::profile::ReadInt16(gKeystrideIni, kUserSection, L"MAGic") == 1;
}

std::wstring GetNetworkDataPath() {
    RequireFile(gUserInfoIni, L"isNetworkVersion");
    return win32::ReplaceAll(win32::profile::ReadString(gUserInfoIni, L"Common", L"NetworkData", L""), gLineBreakMark,
                             kLineBreak);
}

bool isNetworkVersion() {
    try {
        return !GetNetworkDataPath().empty();
    } catch (const std::exception&) {
        return false;
    }
}

bool CopyPath(std::wstring& source, const std::wstring& destinationFolder) {
    if (source.ends_with(L'\\')) source.pop_back();
    // A file in the folder's place would be overwritten.
    return FolderExists(destinationFolder) && win32::files::ShellCopy(source, destinationFolder);
}

void KeepBackup(const std::wstring& file) {
    const auto ending = file.rfind(L'.');
    win32::files::CopyOver(file, file.substr(0, ending) + L".bak");
}

std::optional<std::wstring> LearnerFolderName(std::wstring_view userName) {
    const auto illegal = [](wchar_t c) {
        return c < L' ' || std::wstring_view(L"\\/:*?\"<>|").find(c) != std::wstring_view::npos;
    };
    if (std::any_of(userName.begin(), userName.end(), illegal)) return std::nullopt;
    std::wstring name(userName.substr(0, userName.find_last_not_of(L" .") + 1));
    if (name.empty() || IsDeviceName(name)) return std::nullopt;
    return name;
}

bool StaysInside(std::wstring_view relativePath) {
    const auto names = win32::Split(win32::ReplaceAll(relativePath, L"/", L"\\"), L'\\');
    if (names.front().empty()) return false;
    return std::all_of(names.begin(), names.end(), [](const std::wstring& name) {
        return name.empty() || name == L"." || LearnerFolderName(name).has_value();
    });
}

void EnsureLearnerFolder() {
    const auto learner = LearnerFolderName(gUserName);
    if (!learner) return;
    win32::files::CreateFolder(gStudentRecordsPath);
    win32::files::CreateFolder(gStudentRecordsPath + L"\\" + *learner);
}

bool GetStudentRecordsFromNetwork() { return CopyStudentRecords(true); }

bool PutStudentRecordsToNetwork() { return CopyStudentRecords(false); }

bool PutTeachersLessonsToNetwork() { return PutFileToNetwork(gTeachersLessonsIni); }

bool PutTeachersDictationsToNetwork() { return PutFileToNetwork(gTeachersDictationsIni); }

bool GetTeacherFileFromNetwork(std::wstring_view name) {
    const std::wstring network = NetworkFolder();
    if (network.empty() || !FolderExists(network)) return false;
    std::wstring source = network + L"\\" + std::wstring(name);
    const std::wstring local = gUserDataPath + L"\\" + std::wstring(name);
    if (!FileExists(source)) return false;
    if (FileExists(local) && !win32::files::HaveSameBytes(source, local)) KeepBackup(local);
    return CopyPath(source, gUserDataPath);
}

}  // namespace modUtils
