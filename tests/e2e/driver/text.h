// Text as the tests read and print it: conversions, and control characters made readable.
#pragma once

#include <string>
#include <string_view>

namespace e2e {

std::string ToUtf8(std::wstring_view text);
std::wstring ToWide(std::string_view utf8);

/// Shows every control character as its number in angle brackets: a request prints as KYBP<5>3<5>2.
std::string Readable(std::wstring_view text);

}  // namespace e2e
