// Reading the largest lesson file, showing it in a tree, and saving one lesson of it.
#include <catch2/catch.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "catalogue.h"
#include "figures.h"
#include "lessons/lesson_text.h"
#include "lessons/modTyping.h"
#include "resource_ids.h"
#include "shell/lesson_file.h"
#include "shell/modGlobals.h"
#include "win32/controls.h"
#include "win32/form.h"
#include "win32/profile.h"
#include "win32/text.h"
#include "win32/windows_api.h"

namespace {

using bench::Table;

constexpr std::size_t kRounds = 15;
constexpr int kValueBuffer = 255;

/// The lesson that the writing benchmark replaces.
constexpr std::int16_t kSavedLesson = 100;

/// What the tree shows: a text for every lesson and for each of its tasks, in the tree's order.
using NodeTexts = std::vector<std::wstring>;

NodeTexts TextsOf(const std::vector<modTyping::CatalogueLesson>& lessons) {
    NodeTexts texts;
    for (const auto& lesson : lessons) {
        texts.push_back(lesson.text);
        for (const auto& task : lesson.tasks) texts.push_back(task.text);
    }
    return texts;
}

/// The same texts with a profile call for every single value.
NodeTexts ReadValueByValue(const std::string& file) {
    NodeTexts texts;
    std::array<char, kValueBuffer> value{};
    std::array<char, 32> section{};
    std::array<char, 32> key{};
    const auto read = [&](const char* name) {
        const DWORD length =
            GetPrivateProfileStringA(section.data(), name, "", value.data(), kValueBuffer, file.c_str());
        return win32::TrimBlanks(win32::FromAnsi({value.data(), length}));
    };
    const int lessons = static_cast<int>(GetPrivateProfileIntA("Lessons", "NbrOfLessons", 0, file.c_str()));
    for (int lesson = 1; lesson <= lessons; ++lesson) {
        std::snprintf(section.data(), section.size(), "L%02d", lesson);
        const int tasks = static_cast<int>(GetPrivateProfileIntA(section.data(), "NbrOfTasks", 0, file.c_str()));
        texts.push_back(std::to_wstring(lesson) + L". " + read("DefTitle"));
        for (int task = 1; task <= tasks; ++task) {
            std::snprintf(key.data(), key.size(), "PRINT_USA_TASK_%02d", task);
            texts.push_back(read(key.data()));
        }
    }
    return texts;
}

std::string ReadWholeFile(const std::wstring& file) {
    const HANDLE handle = CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    std::string bytes(GetFileSize(handle, nullptr), '\0');
    DWORD read = 0;
    ReadFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    CloseHandle(handle);
    bytes.resize(read);
    return bytes;
}

std::int16_t Number(std::string_view digits) {
    std::int16_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

/// Fills the tree with as little work as there can be: one look at each line of a file that is known to be regular, and
/// every node inserted where it is found, into the hidden tree. Returns the nodes' keys.
std::vector<std::wstring> FillByOnePass(const std::wstring& file, HWND tree) {
    constexpr std::string_view kTask = "PRINT_USA_TASK_";
    constexpr std::string_view kTitle = "DefTitle=";
    ShowWindow(tree, SW_HIDE);
    const std::string bytes = ReadWholeFile(file);
    std::array<wchar_t, kValueBuffer + 16> text{};
    std::vector<std::wstring> keys;
    HTREEITEM root = nullptr;
    std::int16_t lesson = 0;
    const auto insert = [&](HTREEITEM parent, std::wstring key, std::string_view value, int prefix) {
        const int length = MultiByteToWideChar(CP_ACP, 0, value.data(), static_cast<int>(value.size()),
                                               text.data() + prefix, kValueBuffer);
        text[static_cast<std::size_t>(prefix + length)] = L'\0';
        TVINSERTSTRUCTW item{};
        item.hParent = parent;
        item.hInsertAfter = TVI_LAST;
        item.item.mask = TVIF_TEXT | TVIF_PARAM;
        item.item.pszText = text.data();
        item.item.lParam = static_cast<LPARAM>(keys.size());
        keys.push_back(std::move(key));
        return reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    };
    for (std::string_view rest = bytes; !rest.empty();) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(rest.size(), line.size() + 1));
        const std::string_view content = line.substr(0, line.size() - 1);
        if (content.starts_with("[L") && !content.starts_with("[Le")) {
            lesson = Number(content.substr(2));
        } else if (content.starts_with(kTitle)) {
            const int prefix = swprintf(text.data(), text.size(), L"%d. ", lesson);
            root = insert(TVI_ROOT, lesson_file::SectionName(lesson), content.substr(kTitle.size()), prefix);
        } else if (content.starts_with(kTask)) {
            const std::int16_t task = Number(content.substr(kTask.size()));
            insert(root, lesson_file::TaskNodeKey(lesson, task), content.substr(content.find('=') + 1), 0);
        }
    }
    ShowWindow(tree, SW_SHOWNA);
    return keys;
}

/// A window with the lesson tree of the picker and nothing behind it.
class TreeForm final : public win32::Form {
public:
    TreeForm() : Form(L"TreeForm", IDD_TYPING) {}

    win32::TreeView tvTasks{*this, IDC_TYPING_TASKS, L"tvTasks"};

private:
    void OnLayout() override {
        const win32::Box client = ClientTwips();
        win32::Placer(*this).Put(tvTasks, client);
    }
    void OnClose() override {}
};

/// Handles what waits in the queue, so that no repainting falls into the next measurement.
void HandleMessages() {
    for (MSG message{}; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE;) DispatchMessageW(&message);
}

NodeTexts TextsInTree(HWND tree) {
    NodeTexts texts;
    std::array<wchar_t, 512> text{};
    const auto next = [tree](UINT relation, HTREEITEM item) {
        return reinterpret_cast<HTREEITEM>(
            SendMessageW(tree, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
    };
    const auto add = [&](HTREEITEM node) {
        TVITEMW item{};
        item.mask = TVIF_TEXT | TVIF_HANDLE;
        item.hItem = node;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        texts.emplace_back(item.pszText);
    };
    for (HTREEITEM root = next(TVGN_ROOT, nullptr); root != nullptr; root = next(TVGN_NEXT, root)) {
        add(root);
        for (HTREEITEM child = next(TVGN_CHILD, root); child != nullptr; child = next(TVGN_NEXT, child)) add(child);
    }
    return texts;
}

constexpr std::size_t kNodes = static_cast<std::size_t>(bench::kLessons) * (bench::kTasks + 1);

}  // namespace

TEST_CASE("Reading what the lesson tree shows", "[lessons]") {
    const bench::TempFolder folder;
    const std::filesystem::path file = folder.Path() / "KSLessons.ini";
    bench::WriteCatalogue(file);
    Table::Default().AddShown("lesson file of 201 x 100", static_cast<double>(std::filesystem::file_size(file)),
                              "bytes");

    const std::size_t before = win32::profile::CallCount();
    const NodeTexts sections = TextsOf(modTyping::ReadCatalogue(file.wstring()));
    const std::size_t calls = win32::profile::CallCount() - before;
    Table::Default().AddLimit("reading: profile calls", static_cast<double>(calls), "calls", bench::kLessons + 2);
    CHECK(calls > 0);
    CHECK(calls <= bench::kLessons + 2);
    CHECK(sections.size() == kNodes);
    CHECK((sections == ReadValueByValue(file.string())));

    const auto medians = bench::AlternatingMedians(
        kRounds, {[&] { return bench::Milliseconds([&] { modTyping::ReadCatalogue(file.wstring()); }); },
                  [&] { return bench::Milliseconds([&] { ReadValueByValue(file.string()); }); }});
    Table::Default().AddFaster("reading: against one call a value", medians[0], medians[1], 8);
}

TEST_CASE("Showing the lesson tree", "[lessons]") {
    const bench::TempFolder folder;
    const std::wstring file = (folder.Path() / "KSLessons.ini").wstring();
    bench::WriteCatalogue(file);
    TreeForm form;
    form.Load();
    ShowWindow(form.Handle(), SW_SHOW);
    UpdateWindow(form.Handle());
    HandleMessages();
    const HWND tree = form.tvTasks.Handle();
    const auto ready = [&] {
        form.tvTasks.Clear();
        HandleMessages();
    };
    const auto load = [&] {
        ready();
        return bench::Milliseconds([&] { modTyping::LoadLessons(file, form.tvTasks); });
    };
    const auto floor = [&] {
        ready();
        return bench::Milliseconds([&] { FillByOnePass(file, tree); });
    };

    load();
    const NodeTexts loaded = TextsInTree(tree);
    CHECK(form.tvTasks.IsShown());
    CHECK(form.tvTasks.FindKey(lesson_file::TaskNodeKey(bench::kLessons, bench::kTasks)) != nullptr);
    ready();
    CHECK(FillByOnePass(file, tree).size() == kNodes);
    CHECK(loaded.size() == kNodes);
    CHECK((loaded == TextsInTree(tree)));

    const auto medians = bench::AlternatingMedians(kRounds, {load, floor});
    Table::Default().AddAtMost("tree: LoadLessons against the floor", medians[0], medians[1], 1.3);
}

TEST_CASE("Saving one lesson", "[lessons]") {
    const bench::TempFolder folder;
    const std::filesystem::path original = folder.Path() / "Original.ini";
    const std::filesystem::path saved = folder.Path() / "TeachersLessons.ini";
    const std::filesystem::path single = folder.Path() / "Single.ini";
    bench::WriteCatalogue(original);
    const bench::Lesson lesson = bench::MakeLesson(kSavedLesson, 1);
    const std::wstring section = lesson_file::SectionName(kSavedLesson);
    modTyping::TaskTable tasks;
    for (const modTyping::TaskRow& row : lesson.tasks) REQUIRE(tasks.Load(row));
    modGlobals::gTeachersLessonsIni = saved.wstring();

    const auto startFrom = [&](const std::filesystem::path& file) {
        REQUIRE(CopyFileW(original.c_str(), file.c_str(), FALSE) != FALSE);
        // What the system keeps of the file as it was before must not count.
        WritePrivateProfileStringA(nullptr, nullptr, nullptr, file.string().c_str());
    };
    std::size_t calls = 0;
    const auto save = [&] {
        startFrom(saved);
        const std::size_t before = win32::profile::CallCount();
        const double time = bench::Milliseconds([&] {
            modTyping::SaveLesson(kSavedLesson, lesson.title, lesson.intro, lesson.terminator, lesson.repetitions,
                                  tasks);
        });
        calls = win32::profile::CallCount() - before;
        return time;
    };
    const double median = bench::AlternatingMedians(kRounds, {save})[0];
    Table::Default().AddShown("saving: profile calls", static_cast<double>(calls), "calls");

    startFrom(single);
    const std::string name = win32::ToAnsi(section);
    bool written = true;
    // Once is enough: it takes many seconds.
    const double reference = bench::Milliseconds([&] {
        for (const bench::Entry& entry : bench::Entries(lesson))
            written = written && WritePrivateProfileStringA(name.c_str(), entry.key.c_str(), entry.value.c_str(),
                                                            single.string().c_str()) != FALSE;
    });
    CHECK(written);
    const std::string bytes = bench::ReadBytes(saved);
    CHECK((bytes != bench::ReadBytes(original)));
    CHECK((bytes == bench::ReadBytes(single)));
    CHECK((bench::ReadBytes(folder.Path() / "TeachersLessons.bak") == bench::ReadBytes(original)));
    Table::Default().AddFaster("saving: against one call a value", median, reference, 100);
}
