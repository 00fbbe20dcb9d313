#pragma once

#include <functional>
#include <string>

namespace tarvolt {

/// The text for `key` in the user's language, or `key` itself where there is no translation. `context` names the place
/// that shows it. Main thread.
std::string localized(const char* context, const char* key);

using Translator = std::function<std::string(const char* context, const char* key)>;

/// Fills the hook behind `localized`; without one every key is its own text. Main thread.
void setTranslator(Translator translator);

} // namespace tarvolt
