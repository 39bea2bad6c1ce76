// Any text as a settings file, which keeps every byte until a value is set, and as a stored string.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "audio/ProfileText.h"
#include "audio/SettingStore.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(bytes), size);
  tembrel::ProfileText profile(text);
  const bool kept = profile.Text() == text;
  profile.FirstValue("section");
  profile.SetValue("section", "key", tembrel::QuoteSetting(text));
  const tembrel::ProfileText again(profile.Text());
  const auto value = again.Value("section", "key");
  tembrel::UnquoteSetting(text);
  if (!kept || !value || tembrel::UnquoteSetting(*value) != text) {
    std::abort();
  }
  return 0;
}
