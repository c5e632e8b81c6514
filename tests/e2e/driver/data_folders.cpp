// The folders in which the program keeps its data, as a test or the demo finds, seeds, reads and blocks them.
#include "driver/data_folders.h"

#include <array>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include <shlobj.h>

namespace e2e {

namespace fs = std::filesystem;

namespace {

fs::path SpecialFolder(int number) {
    std::array<wchar_t, MAX_PATH> path{};
    if (FAILED(SHGetFolderPathW(nullptr, number, nullptr, SHGFP_TYPE_CURRENT, path.data())))
        throw std::runtime_error("a special folder is missing");
    return path.data();
}

std::string Padded(int number) {
    std::string digits = std::to_string(number);
    return digits.size() < 2 ? '0' + digits : digits;
}

}  // namespace

fs::path CommonFolder() { return SpecialFolder(CSIDL_COMMON_APPDATA) / L"Brightfield" / L"Keystride"; }

fs::path UserFolder() { return SpecialFolder(CSIDL_APPDATA) / L"Brightfield" / L"Keystride"; }

void RemoveTree(const fs::path& path) {
    // A process that was just ended may hold its files a moment longer.
    std::error_code error;
    const bool gone = WaitUntil([&] {
        fs::remove_all(path, error);
        return !fs::exists(path);
    });
    if (!gone) throw std::runtime_error("cannot remove " + path.string());
}

void WipeDataFolders() {
    RemoveTree(CommonFolder().parent_path());
    RemoveTree(UserFolder().parent_path());
}

std::string LessonSection(int number, const LessonText& lesson) {
    std::string text = "[L" + Padded(number) + "]\r\nDefTitle=" + lesson.title +
                       "\r\nINTRO_LSN_JAWS=Listen.\r\nTaskReps=2\r\nTaskDL=Space\r\nNbrOfTasks=" +
                       std::to_string(lesson.tasks.size()) + "\r\n";
    for (std::size_t index = 0; index < lesson.tasks.size(); ++index) {
        const std::string number2 = Padded(static_cast<int>(index) + 1);
        const std::string& task = lesson.tasks[index];
        text += "KIND_TASK_" + number2 + "=1\r\nPRINT_USA_TASK_" + number2 + '=' + task + "\r\nSPELL_USA_TASK_" +
                number2 + '=' + task + "\x05\r\nEXPLN_USA_CHILD_" + number2 + "=Type it.\r\n";
    }
    return text;
}

std::string LessonFile(const std::vector<LessonText>& lessons) {
    std::string text = "[Lessons]\r\nNbrOfLessons=" + std::to_string(lessons.size()) + "\r\n";
    for (std::size_t index = 0; index < lessons.size(); ++index)
        text += LessonSection(static_cast<int>(index) + 1, lessons[index]);
    return text;
}

}  // namespace e2e
