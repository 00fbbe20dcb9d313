#pragma once

#include <functional>
#include <string>

namespace tarvolt {

/// The translation of `key` into the user's language, or `key` itself if there is none. `context` is the part of the
/// window that shows it. Main thread.
std::string localized(const char* context, const char* key);

using Translator = std::function<std::string(const char* context, const char* key)>;

/// Sets what `localized` asks; without a translator it returns every key as it is. Main thread.
void setTranslator(Translator translator);

} // namespace tarvolt
