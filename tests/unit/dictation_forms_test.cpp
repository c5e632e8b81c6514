// The dictation text entry on a real window: what it gives back and what it leaves alone.
#include <initializer_list>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "dictation/dlgDictationEdit.h"
#include "dictation/dlgDictationTask.h"
#include "shell/modGlobals.h"
#include "unit/modal.h"
#include "unit/test_forms.h"
#include "win32/windows_api.h"

namespace unit {
namespace {

using namespace modGlobals;

class DictationEntry : public ::testing::Test {
protected:
    void SetUp() override {
        owner_.Load();
        active_.emplace(owner_);
        gEditTaskText = L"text before";
        gEditDictationText = L"label before";
    }
    void TearDown() override {
        active_.reset();
        dlgDictationEdit::Default().Unload();
    }

    static dlgDictationTask& Form() { return dlgDictationTask::Default(); }

private:
    TreeForm owner_;
    std::optional<win32::ActiveScope> active_;
};

TEST_F(DictationEntry, EveryWayOutButSavingLeavesTheSessionsTexts) {
    for (const auto& leave : std::initializer_list<void (*)()>{
             [] { Click(Form().CancelButton); }, [] { PostMessageW(Form().Handle(), WM_CLOSE, 0, 0); },
             [] { PostMessageW(Form().rtfEdit.Handle(), WM_KEYDOWN, VK_ESCAPE, 0); }}) {
        int result = 0;
        During([&] { Form().ShowFormEdit(1, 1, gEditTaskText, result); },
               [&] {
                   EXPECT_EQ(Form().rtfEdit.Text(), L"text before");
                   Form().rtfEdit.SetText(L"typed");
                   leave();
               });
        EXPECT_EQ(result, 2);
        EXPECT_EQ(gEditTaskText, L"text before");
        EXPECT_EQ(gEditDictationText, L"label before");
    }
}

TEST_F(DictationEntry, SavingGivesTheEncodedTextAndTheLabelWithItsCr) {
    int result = 0;
    During([&] { Form().ShowFormAdd(1, result); },
           [] {
               EXPECT_EQ(Form().rtfEdit.Text(), L"") << "an added dictation starts empty";
               Form().rtfEdit.SetText(L"Dear Sir,\r\n\tthank you.");
               Click(Form().OKButton);
           });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(gEditTaskText, L"Dear Sir,\x07\x06thank you.");
    EXPECT_EQ(gEditDictationText, L"Dear Sir,\r");
}

}  // namespace
}  // namespace unit
