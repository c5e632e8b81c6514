// The preferences file: lines in order, values, what a section too long for its buffer gives, bad lines.
#include "profile/modPreferences.h"

#include <string>
#include <vector>

#include "resource_ids.h"
#include "shell/list_selection.h"
#include "shell/modUtils.h"
#include "unit/fixture.h"
#include "win32/form.h"
#include "win32/windows_api.h"

namespace unit {
namespace {

using Texts = std::vector<std::wstring>;

/// A form on the preferences dialog's template with its list.
class ListForm final : public win32::Form {
public:
    ListForm() : Form(L"unitListForm", IDD_PREFERENCES) {}
    ListForm(const ListForm&) = delete;
    ListForm& operator=(const ListForm&) = delete;
    ~ListForm() override { Unload(); }

    win32::ListBox lstPreferences{*this, IDC_PREFERENCES_LIST, L"unitList"};

protected:
    void OnClose() override { Unload(); }
};

class PreferencesTest : public FolderTest {
protected:
    void SetUp() override {
        FolderTest::SetUp();
        form_.Load();
    }

    std::int16_t Load(const std::string& lines) {
        return modPreferences::LoadPreferences(NewFile("[UserPreferences]\r\n" + lines), form_.lstPreferences);
    }
    [[nodiscard]] Texts Entries() const {
        Texts entries;
        for (int line = 0; line < form_.lstPreferences.Count(); ++line) {
            std::wstring text(static_cast<std::size_t>(SendMessageW(form_.lstPreferences.Handle(), LB_GETTEXTLEN,
                                                                    static_cast<WPARAM>(line), 0)),
                              L'\0');
            SendMessageW(form_.lstPreferences.Handle(), LB_GETTEXT, static_cast<WPARAM>(line),
                         reinterpret_cast<LPARAM>(text.data()));
            entries.push_back(text);
        }
        return entries;
    }

    /// Lines "kN=vvv" that together take `bytes` bytes, their NULs included; the last line ends at the last byte.
    static std::string LinesOf(std::size_t bytes) {
        std::string lines;
        constexpr std::size_t kLineBytes = 100;
        for (std::size_t used = 0; used < bytes;) {
            const std::size_t size = bytes - used < 2 * kLineBytes ? bytes - used : kLineBytes;
            const std::string key = "k" + std::to_string(used) + "=";
            lines += key + std::string(size - key.size() - 1, 'v') + "\r\n";
            used += size;
        }
        return lines;
    }

    ListForm form_;
};

TEST_F(PreferencesTest, TheValuesOfTheLinesAreListedInTheirOrder) {
    EXPECT_EQ(Load("B=Speak slower\r\nA=Speak faster\r\n"), 2);
    EXPECT_EQ(Entries(), (Texts{L"Speak slower", L"Speak faster"}));
    EXPECT_EQ(form_.lstPreferences.Selected(), 0);
}

TEST_F(PreferencesTest, AValueIsAllTheTextBehindTheFirstEqualsSign) {
    EXPECT_EQ(Load("a=b=c\r\n=no key\r\nempty=\r\nq=\"quoted\"\r\na=twice\r\n"), 5);
    EXPECT_EQ(Entries(), (Texts{L"b=c", L"no key", L"", L"\"quoted\"", L"twice"}));
}

TEST_F(PreferencesTest, AnEmptyOrMissingSectionGivesAnEmptyList) {
    EXPECT_EQ(Load(""), 0);
    EXPECT_EQ(modPreferences::LoadPreferences(NewFile("[Other]\r\na=1\r\n"), form_.lstPreferences), 0);
    EXPECT_EQ(form_.lstPreferences.Selected(), -1);
}

TEST_F(PreferencesTest, ALineWithoutAnEqualsSignIsError9) {
    const win32::AppError error = RaisedBy([&] { Load("a=1\r\nbare\r\nb=2\r\n"); });
    EXPECT_EQ(error.Number(), win32::kSubscriptNumber);
    EXPECT_EQ(error.Source(), L"LoadPreferences");
}

TEST_F(PreferencesTest, AMissingFileIsReported) {
    const std::wstring file = NewName();
    const win32::AppError error = RaisedBy([&] { modPreferences::LoadPreferences(file, form_.lstPreferences); });
    EXPECT_EQ(error.Number(), modUtils::kFileNotFoundNumber);
    EXPECT_EQ(error.Source(), L"LoadPreferences");
    EXPECT_EQ(error.Description(), L"File " + file + L"not found.");
}

TEST_F(PreferencesTest, AFileThatCannotBeReadIsNotTakenForEmpty) {
    const std::wstring file = NewFile("[UserPreferences]\r\na=1\r\n");
    const HeldFile held(file, false);
    ASSERT_TRUE(held.Held());
    ExpectUnreadable(file, L"LoadPreferences", [&] { modPreferences::LoadPreferences(file, form_.lstPreferences); });
}

TEST_F(PreferencesTest, ATextWiderThanTheListCanBeScrolledTo) {
    const auto extent = [&] { return SendMessageW(form_.lstPreferences.Handle(), LB_GETHORIZONTALEXTENT, 0, 0); };
    const std::wstring wide(250, L'w');
    Load("a=short\r\nb=" + std::string(250, 'w') + "\r\nc=short\r\n");
    const auto wideExtent = extent();
    EXPECT_GE(wideExtent, form_.ToPixels(form_.TextTwips(wide).width));
    RECT suggested{0, 0, 500, 500};
    SendMessageW(form_.Handle(), WM_DPICHANGED, MAKEWPARAM(2 * form_.Dpi(), 2 * form_.Dpi()),
                 reinterpret_cast<LPARAM>(&suggested));
    EXPECT_GE(extent(), form_.ToPixels(form_.TextTwips(wide).width));
    EXPECT_GT(extent(), wideExtent) << "the letters have grown";
    form_.lstPreferences.Clear();
    form_.lstPreferences.Add(L"short");
    EXPECT_LT(extent(), wideExtent);
}

TEST_F(PreferencesTest, ASectionThatFillsTheBufferToTheByteIsListedWhole) {
    // One byte of the 4096 ends the list.
    for (const std::size_t bytes : {std::size_t{4093}, std::size_t{4094}, std::size_t{4095}}) {
        form_.lstPreferences.Clear();
        const std::string lines = LinesOf(bytes);
        Load(lines);
        ASSERT_EQ(Entries().size(), 40U) << bytes;
        EXPECT_EQ(Entries().back().size(), bytes - 3900 - std::string("k3900=").size() - 1) << bytes;
    }
}

TEST_F(PreferencesTest, OfASectionTooLongOnlyTheEntriesThatFitWholeAreListed) {
    for (const std::size_t bytes : {std::size_t{4096}, std::size_t{4097}, std::size_t{4195}}) {
        form_.lstPreferences.Clear();
        EXPECT_EQ(Load(LinesOf(bytes)), bytes < 4100 ? 39 : 40) << bytes;
        for (const std::wstring& entry : Entries()) EXPECT_GE(entry.size(), 93U) << bytes;
    }
}

TEST_F(PreferencesTest, AnEntryThatEndsAtTheLastByteIsWholeWithMoreBehindIt) {
    // The buffer keeps 4094 bytes of a longer section.
    const std::string fits = LinesOf(4095);
    EXPECT_EQ(Load(fits + "more=1\r\n"), 40) << "its text ends with the 4094th byte";
    form_.lstPreferences.Clear();
    EXPECT_EQ(Load(LinesOf(4094) + "more=1\r\n"), 40) << "its NUL is the 4094th byte";
    form_.lstPreferences.Clear();
    EXPECT_EQ(Load(LinesOf(4096) + "more=1\r\n"), 39);
}

TEST_F(PreferencesTest, OneLineLongerThanTheBufferGivesAnEmptyList) {
    EXPECT_EQ(Load("a=" + std::string(5000, 'v') + "\r\n"), 0);
    EXPECT_EQ(form_.lstPreferences.Selected(), -1);
}

TEST_F(PreferencesTest, ACutLineWithoutAnEqualsSignIsNoError) {
    EXPECT_EQ(Load(LinesOf(4000) + std::string(200, 'b') + "\r\n"), 40);
}

TEST_F(PreferencesTest, TheNumberOfTheChoiceIs1WithoutOneAnd0InAnEmptyList) {
    EXPECT_EQ(list_selection::SelectedNumber(form_.lstPreferences), 0);
    Load("a=1\r\nb=2\r\nc=3\r\n");
    EXPECT_EQ(list_selection::SelectedNumber(form_.lstPreferences), 1);
    form_.lstPreferences.Select(2);
    EXPECT_EQ(list_selection::SelectedNumber(form_.lstPreferences), 3);
    form_.lstPreferences.Select(-1);
    EXPECT_EQ(list_selection::SelectedNumber(form_.lstPreferences), 1);
}

}  // namespace
}  // namespace unit
