// The names of key chords.
#include "tools/chords.h"

#include <algorithm>
#include <array>
#include <set>

#include "lessons/command_keys.h"
#include "lessons/lesson_text.h"
#include "tools/section_reader.h"
#include "win32/text.h"

namespace data_files {

namespace {

constexpr std::array<std::wstring_view, 4> kModifiers{L"Control", L"Alt", L"Shift", L"JawsKey"};
constexpr std::wstring_view kNeverWritten = L"Insert";

/// The names that a chord may end in.
std::set<std::wstring> ChordKeyNames() {
    std::set<std::wstring> names;
    for (const command_keys::KeyName& row : command_keys::KeyNames())
        for (int code = row.first; code <= row.last; ++code) {
            std::wstring name = row.name;
            if (row.counted != 0) name += static_cast<wchar_t>(row.counted + (code - row.first));
            if (name != kNeverWritten) names.insert(name);
        }
    return names;
}

}  // namespace

bool IsChords(std::wstring_view kind) { return win32::LeadingNumber(kind) == modTyping::kCommandKeysKind; }

bool IsChordKey(const std::wstring& name) {
    static const std::set<std::wstring> kNames = ChordKeyNames();
    return kNames.contains(name);
}

std::wstring ChordProblem(std::wstring_view chord) {
    const auto fields = win32::Split(chord, L'+');
    if (std::find(fields.begin(), fields.end(), kNeverWritten) != fields.end())
        return L"names Insert, which is only ever written as JawsKey";
    const auto* next = kModifiers.begin();
    for (std::size_t i = 0; i + 1 < fields.size(); ++i) {
        next = std::find(next, kModifiers.end(), fields[i]);
        if (next == kModifiers.end())
            return L"does not begin with Control, Alt, Shift and JawsKey in this order, each with a plus sign";
        ++next;
    }
    if (!IsChordKey(fields.back())) return L"ends in " + Quoted(fields.back()) + L", which is no key's name";
    return {};
}

}  // namespace data_files
