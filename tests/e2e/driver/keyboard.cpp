// Real key presses through the system's input queue.
#include "driver/keyboard.h"

#include <algorithm>
#include <array>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "win32/windows_api.h"

namespace e2e {

namespace {

WORD VirtualKey(const std::string& name) {
    static const std::map<std::string, WORD> kNamed{
        {"Ctrl", VK_CONTROL},   {"Alt", VK_MENU},     {"Shift", VK_SHIFT},   {"Enter", VK_RETURN},
        {"Esc", VK_ESCAPE},     {"Tab", VK_TAB},      {"Space", VK_SPACE},   {"Up", VK_UP},
        {"Down", VK_DOWN},      {"Left", VK_LEFT},    {"Right", VK_RIGHT},   {"Home", VK_HOME},
        {"End", VK_END},        {"PageUp", VK_PRIOR}, {"PageDown", VK_NEXT}, {"Delete", VK_DELETE},
        {"Backspace", VK_BACK}, {"Insert", VK_INSERT}};
    if (const auto named = kNamed.find(name); named != kNamed.end()) return named->second;
    if (name.size() == 1 && ((name[0] >= 'A' && name[0] <= 'Z') || (name[0] >= '0' && name[0] <= '9')))
        return static_cast<WORD>(name[0]);
    if (name.size() >= 2 && name[0] == 'F') {
        const int number = std::stoi(name.substr(1));
        if (number >= 1 && number <= 24) return static_cast<WORD>(VK_F1 + number - 1);
    }
    throw std::invalid_argument("no such key: " + name);
}

bool IsExtended(WORD key) {
    static constexpr std::array<WORD, 10> kExtended{VK_UP,  VK_DOWN,  VK_LEFT, VK_RIGHT,  VK_HOME,
                                                    VK_END, VK_PRIOR, VK_NEXT, VK_DELETE, VK_INSERT};
    return std::find(kExtended.begin(), kExtended.end(), key) != kExtended.end();
}

INPUT KeyInput(WORD key, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = (up ? KEYEVENTF_KEYUP : 0U) | (IsExtended(key) ? KEYEVENTF_EXTENDEDKEY : 0U);
    return input;
}

INPUT CharacterInput(wchar_t character, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = static_cast<WORD>(character);
    input.ki.dwFlags = KEYEVENTF_UNICODE | (up ? KEYEVENTF_KEYUP : 0U);
    return input;
}

/// Holds the keys down in order and lets them go in the opposite order, as fingers do.
void SendChord(const std::vector<WORD>& keys) {
    std::vector<INPUT> inputs;
    for (const WORD key : keys) inputs.push_back(KeyInput(key, false));
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) inputs.push_back(KeyInput(*key, true));
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

}  // namespace

void PressKeys(std::string_view chord) {
    std::vector<WORD> keys;
    std::size_t start = 0;
    while (start <= chord.size()) {
        const std::size_t end = std::min(chord.find('+', start), chord.size());
        keys.push_back(VirtualKey(std::string(chord.substr(start, end - start))));
        start = end + 1;
    }
    SendChord(keys);
}

void TypeKeys(std::wstring_view text) {
    for (const wchar_t character : text) {
        const SHORT scan = VkKeyScanW(character);
        if (scan == -1) {
            std::array<INPUT, 2> inputs{CharacterInput(character, false), CharacterInput(character, true)};
            SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
            continue;
        }
        std::vector<WORD> keys;
        const int modifiers = HIBYTE(scan);
        if (modifiers & 1) keys.push_back(VK_SHIFT);
        if (modifiers & 2) keys.push_back(VK_CONTROL);
        if (modifiers & 4) keys.push_back(VK_MENU);
        keys.push_back(static_cast<WORD>(LOBYTE(scan)));
        SendChord(keys);
    }
}

}  // namespace e2e
