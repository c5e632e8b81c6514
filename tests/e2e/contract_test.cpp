// The document for script writers against the live windows: every control in the one is in the other.
#include <array>
#include <fstream>
#include <map>
#include <sstream>

#include "fixture.h"

namespace e2e {
namespace {

struct ControlRow {
    std::wstring control;
    std::wstring identifier;
    std::wstring className;
    std::wstring hidden;
    std::wstring spokenName;

    friend bool operator==(const ControlRow&, const ControlRow&) = default;
};

void PrintTo(const ControlRow& row, std::ostream* stream) {
    *stream << ToUtf8(row.control) << " | " << ToUtf8(row.identifier) << " | " << ToUtf8(row.className) << " | "
            << ToUtf8(row.hidden) << " | " << ToUtf8(row.spokenName);
}

using FormTables = std::map<std::wstring, std::vector<ControlRow>>;

std::string Trim(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \r");
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(" \r") - first + 1);
}

std::vector<std::wstring> Cells(const std::string& line) {
    std::vector<std::wstring> cells;
    std::istringstream stream(line.substr(1));
    for (std::string cell; std::getline(stream, cell, '|');) cells.push_back(ToWide(Trim(cell)));
    return cells;
}

/// The tables under the headings that name a form ("### dlgTyping"); other tables have other columns.
FormTables ReadDocument() {
    std::ifstream stream(SourceFolder() / L"docs" / L"contract.md");
    FormTables tables;
    std::wstring form;
    bool inTable = false;
    for (std::string line; std::getline(stream, line);) {
        line = Trim(line);
        if (line.starts_with("#")) {
            form = line.starts_with("### ") ? ToWide(Trim(line.substr(4))) : std::wstring();
            inTable = false;
        } else if (line.starts_with("| control | identifier |")) {
            inTable = true;
        } else if (!line.starts_with("|")) {
            inTable = false;
        } else if (inTable && !form.empty() && !line.starts_with("|---")) {
            const std::vector<std::wstring> cells = Cells(line);
            if (cells.size() >= 5) tables[form].push_back({cells[0], cells[1], cells[2], cells[3], cells[4]});
        }
    }
    return tables;
}

std::wstring OnOneLine(std::wstring text) {
    for (std::size_t at = text.find(L"\r\n"); at != std::wstring::npos; at = text.find(L"\r\n"))
        text.replace(at, 2, L" ");
    return text;
}

/// A function-key button's caption is three lines; its first one, the key, is not spoken as part of the name.
std::wstring ButtonName(const Window& button) {
    const std::wstring caption = button.Text();
    const bool withKey = caption.starts_with(L"< F");
    return OnOneLine(withKey ? caption.substr(caption.find(L"\r\n") + 2) : caption);
}

std::wstring SpokenName(const Window& control) {
    if (control.IsTextOrListControl()) return control.Previous().IsStatic() ? control.Previous().Text() : L"";
    return control.ClassName() == L"Button" ? ButtonName(control) : OnOneLine(control.Text());
}

std::vector<ControlRow> ReadForm(const Window& form) {
    std::vector<ControlRow> rows;
    for (const Window& control : form.Children()) {
        if (control.Name().empty()) continue;
        // The channel button's caption is a message, not a name.
        const std::wstring spoken = control.Name() == L"cmdAccessibility" ? L"" : SpokenName(control);
        rows.push_back({control.Name(), std::to_wstring(control.Id()), control.ClassName(),
                        control.Shown() ? L"no" : L"yes", spoken.empty() ? L"\u2013" : spoken});
    }
    return rows;
}

/// The forms that a key of the main window opens on their own.
struct OtherForm {
    const char* chord;
    const wchar_t* form;
    const wchar_t* focus;
};
constexpr std::array<OtherForm, 3> kOtherForms{{{"Ctrl+U", L"dlgPreferences", L"lstPreferences"},
                                                {"Ctrl+Alt+Shift+F12", L"dlgStudentProfile", L"cmboBirthYear"},
                                                {"Ctrl+Alt+Shift+F10", L"dlgGeneral", L"txtGeneral"}}};

class Contract : public KeystrideTest {
protected:
    /// Presses a button of one form and reads the form that opens.
    Window OpenFrom(std::wstring_view form, std::wstring_view button, std::wstring_view opened) {
        EXPECT_TRUE(App().Control(form, button).Click());
        const Window window = App().WaitForForm(opened);
        EXPECT_TRUE(window) << ToUtf8(button) << " does not open " << ToUtf8(opened);
        EXPECT_TRUE(WaitUntil([&] { return App().Active() == window; }));
        return window;
    }

    void Close(std::wstring_view form) {
        ASSERT_TRUE(App().Press("Esc"));
        ASSERT_TRUE(App().WaitForNoForm(form));
    }
};

TEST_F(Contract, DocumentedControlsAreTheLiveOnes) {
    const FormTables document = ReadDocument();
    ASSERT_FALSE(document.empty()) << "no tables in docs/contract.md";
    FormTables live;
    // The document describes the title line in these words, so the lesson is called so; its first task is a new one.
    WriteBytes(CommonFolder() / L"TeachersLessons.ini", LessonFile({{"the lesson's title", {}}}));
    WriteBytes(CommonFolder() / L"TeachersDictations.ini",
               "[Dictations]\r\nNbrOfLessons=1\r\n[L01]\r\nDefTitle=the lesson's title\r\nNbrOfTasks=0\r\n");
    WriteBytes(CommonFolder() / L"KSGeneral.ini",
               "[General]\r\nMultiRow=the instructions\r\n[StudentProfile]\r\nMultiRow=the instructions\r\n");
    Start();
    const Window login = App().WaitForForm(L"dlgLogin");
    ASSERT_TRUE(login);
    live[L"dlgLogin"] = ReadForm(login);
    ASSERT_TRUE(App().WaitForFocus(L"txtLoginName"));
    ASSERT_TRUE(App().Press("Esc"));
    ASSERT_TRUE(App().WaitForNoForm(L"dlgLogin"));
    live[L"frmMain"] = ReadForm(App().Form(L"frmMain"));
    live[L"dlgTyping"] = ReadForm(OpenPicker("F3"));
    ClosePicker();
    ASSERT_TRUE(OpenPicker("F7"));
    live[L"dlgLessonEdit"] = ReadForm(OpenFrom(L"dlgTyping", L"cmdEditLesson", L"dlgLessonEdit"));
    live[L"dlgTaskEdit"] = ReadForm(OpenFrom(L"dlgLessonEdit", L"cmdCreateTask", L"dlgTaskEdit"));
    ASSERT_NO_FATAL_FAILURE(Close(L"dlgTaskEdit"));
    live[L"dlgLessonDetails"] = ReadForm(OpenFrom(L"dlgLessonEdit", L"cmdEditLesson", L"dlgLessonDetails"));
    ASSERT_NO_FATAL_FAILURE(Close(L"dlgLessonDetails"));
    ASSERT_NO_FATAL_FAILURE(Close(L"dlgLessonEdit"));
    ASSERT_NO_FATAL_FAILURE(Close(L"dlgTyping"));
    live[L"dlgAcademics"] = ReadForm(OpenForm("F6", L"dlgAcademics", L"tvAcademics"));
    live[L"dlgQuizzes"] = ReadForm(OpenForm("Enter", L"dlgQuizzes", L"lstQuizzes"));
    ASSERT_NO_FATAL_FAILURE(CloseForm(L"dlgQuizzes"));
    for (const OtherForm& other : kOtherForms) {
        live[other.form] = ReadForm(OpenForm(other.chord, other.form, other.focus));
        ASSERT_NO_FATAL_FAILURE(CloseForm(other.form));
    }
    live[L"dlgDictation"] = ReadForm(OpenForm("F4", L"dlgDictation", L"tvTasks"));
    ASSERT_NO_FATAL_FAILURE(CloseForm(L"dlgDictation"));
    ASSERT_TRUE(OpenForm("F8", L"dlgDictation", L"tvTasks"));
    live[L"dlgDictationEdit"] = ReadForm(OpenFrom(L"dlgDictation", L"cmdEditDictation", L"dlgDictationEdit"));
    live[L"dlgDictationTask"] = ReadForm(OpenFrom(L"dlgDictationEdit", L"cmdCreateTask", L"dlgDictationTask"));
    ASSERT_NO_FATAL_FAILURE(Close(L"dlgDictationTask"));
    live[L"dlgDictationDetails"] = ReadForm(OpenFrom(L"dlgDictationEdit", L"cmdEditDictation", L"dlgDictationDetails"));

    for (const auto& [form, rows] : document) {
        ASSERT_TRUE(live.contains(form)) << "no test opens " << ToUtf8(form);
        EXPECT_EQ(live[form], rows) << ToUtf8(form);
    }
    for (const auto& [form, rows] : live) {
        EXPECT_TRUE(document.contains(form)) << ToUtf8(form) << " is missing in docs/contract.md";
        EXPECT_FALSE(rows.empty()) << ToUtf8(form);
    }
}

TEST_F(Contract, ControlsAreNativeClassesWithUniqueIdentifiers) {
    const std::vector<std::wstring> native{L"Button",   L"Edit",          L"Static",     L"ListBox",
                                           L"ComboBox", L"SysTreeView32", L"RICHEDIT50W"};
    std::map<int, std::wstring> owners;
    const auto check = [&](const Window& form) {
        for (const Window& control : form.Children()) {
            const std::wstring className = control.ClassName();
            EXPECT_NE(std::find(native.begin(), native.end(), className), native.end()) << ToUtf8(className);
            const int id = control.Id();
            if (id == IDOK || id == IDCANCEL) continue;
            EXPECT_GT(id, 100);
            EXPECT_TRUE(owners.emplace(id, control.Name()).second)
                << id << " is used by " << ToUtf8(control.Name()) << " and by " << ToUtf8(owners[id]);
        }
    };
    StartUnsigned();
    check(App().Form(L"frmMain"));
    check(OpenForm("F6", L"dlgAcademics", L"tvAcademics"));
    check(OpenForm("Enter", L"dlgQuizzes", L"lstQuizzes"));
    ASSERT_NO_FATAL_FAILURE(CloseForm(L"dlgQuizzes"));
    for (const OtherForm& other : kOtherForms) {
        check(OpenForm(other.chord, other.form, other.focus));
        ASSERT_NO_FATAL_FAILURE(CloseForm(other.form));
    }
    const Window picker = OpenPicker("F7");
    check(picker);
    EXPECT_EQ(picker.Descendant(L"OKButton").Id(), IDOK);
    EXPECT_EQ(picker.Descendant(L"CancelButton").Id(), IDCANCEL);
}

TEST_F(Contract, DocumentNamesEveryRequestThatTheProgramSends) {
    std::ifstream stream(SourceFolder() / L"docs" / L"contract.md");
    std::stringstream text;
    text << stream.rdbuf();
    StartUnsigned();
    std::vector<std::wstring> requests{App().Request()};
    for (const char* chord : {"F3", "F7"}) {
        ASSERT_TRUE(OpenPicker(chord));
        requests.push_back(App().Request());
        ClosePicker();
    }
    for (const char* chord : {"F4", "F8"}) {
        ASSERT_TRUE(OpenForm(chord, L"dlgDictation", L"tvTasks"));
        requests.push_back(App().Request());
        ASSERT_NO_FATAL_FAILURE(CloseForm(L"dlgDictation"));
    }
    ASSERT_TRUE(OpenForm("F6", L"dlgAcademics", L"tvAcademics"));
    ASSERT_NO_FATAL_FAILURE(CloseForm(L"dlgAcademics"));
    requests.push_back(App().Request());
    for (const OtherForm& other : kOtherForms) {
        ASSERT_TRUE(OpenForm(other.chord, other.form, other.focus));
        ASSERT_NO_FATAL_FAILURE(CloseForm(other.form));
        requests.push_back(App().Request());
    }
    ASSERT_TRUE(OpenForm("Ctrl+Alt+Shift+F11", L"dlgGeneral", L"txtGeneral"));
    ASSERT_NO_FATAL_FAILURE(CloseForm(L"dlgGeneral"));
    requests.push_back(App().Request());
    for (const std::wstring& request : requests) {
        std::string written;
        for (const wchar_t character : request) {
            if (character < L' ')
                written += "\\x0" + std::to_string(static_cast<int>(character));
            else
                written += static_cast<char>(character);
        }
        EXPECT_NE(text.str().find('`' + written + '`'), std::string::npos) << written;
    }
}

}  // namespace
}  // namespace e2e
