// Signing a learner on by name: the two rules for a name, and what an accepted one changes.
#pragma once

#include <string>
#include <string_view>

namespace sign_on {

/// Why a name is refused; "" when it is accepted. The length counts blanks at the ends, the search for a blank does
/// not.
std::wstring ValidateName(std::wstring_view name);

/// Makes an accepted name the learner: session state, the network's records and the learner's folder.
/// Raises std::system_error when the folder cannot be made.
void SignOnLearner(const std::wstring& name);

}  // namespace sign_on
