// The subject picker.
#include "academics/dlgAcademics.h"

#include "shell/channel.h"
#include "shell/modGlobals.h"
#include "shell/tree_selection.h"

using namespace modGlobals;

dlgAcademics& dlgAcademics::Default() {
    static dlgAcademics form;
    return form;
}

dlgAcademics::dlgAcademics() : Dialog(L"dlgAcademics", IDD_ACADEMICS) {
    OKButton.OnClick = [this] { OnOKButtonClick(); };
    parts.main = &tvAcademics;
    parts.buttons = {&OKButton, &CancelButton};
}

void dlgAcademics::ShowForm(bool isProduct, std::int16_t sectionCount, const std::vector<std::wstring>& sections,
                            const std::vector<std::int16_t>& topicCounts, const modAcademics::TopicTable& topics,
                            std::int16_t& result) {
    result = win32::kResultCancelled;
    const win32::UnloadAtExit unload(*this);
    Load();
    kind_ = modAcademics::KindCode(isProduct);
    SetCaption(isProduct ? L"Pick an Academic Subject" : L"Pick a Teacher's Academic Subject");
    tvAcademics.Clear();
    modAcademics::AddAcademicsToTree(sectionCount, sections, topicCounts, topics, tvAcademics);
    result = static_cast<std::int16_t>(ShowModal());
}

void dlgAcademics::OnOKButtonClick() {
    const auto key = tree_selection::SelectedKey(tvAcademics, L"Select an academic section or topic first",
                                                 L"There are no academics sections or topics to select");
    if (!key) return;
    modAcademics::ParseAcademicSelection(*key);
    channel::SendToScreenReader(kind_ + gSep + *key);
    Close(win32::kResultOk);
}

void dlgAcademics::Cancel() {
    channel::SendToScreenReader(kind_ + gSep + gNoSelection);
    Close(win32::kResultCancelled);
}
