// The subject picker: chooses an academic subject or one of its topics.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "academics/modAcademics.h"
#include "resource_ids.h"
#include "win32/controls.h"
#include "win32/dialog.h"

class dlgAcademics final : public win32::Dialog {
public:
    static dlgAcademics& Default();

    /// Shows the dialog on a catalogue, the product's own or a teacher's; `result` is 1 when a subject or topic was
    /// chosen and announced, 2 otherwise.
    void ShowForm(bool isProduct, std::int16_t sectionCount, const std::vector<std::wstring>& sections,
                  const std::vector<std::int16_t>& topicCounts, const modAcademics::TopicTable& topics,
                  std::int16_t& result);

    win32::TreeView tvAcademics{*this, IDC_ACADEMICS_SUBJECTS, L"tvAcademics"};

private:
    dlgAcademics();

    win32::Control& FirstFocus() override { return tvAcademics; }
    void Cancel() override;

    void OnOKButtonClick();

    std::wstring kind_;
};
