#include "zntopo/platform/tvutil/JavaText.h"

#include "zntopo/platform/tvxpl/TvXplStr.h"

static_assert(sizeof(jchar) == sizeof(char16_t));

jstring newJavaText(JNIEnv* env, std::string_view text) {
  const std::u16string wide = TvXplStr::widen(text);
  // The characters of both are units of UTF-16.
  return env->NewString(reinterpret_cast<const jchar*>(wide.data()),
                        static_cast<jsize>(wide.size()));
}

std::string nativeText(JNIEnv* env, jstring text) {
  if (text == nullptr) return "";
  std::u16string wide(static_cast<std::size_t>(env->GetStringLength(text)), u'\0');
  env->GetStringRegion(text, 0, static_cast<jsize>(wide.size()),
                       reinterpret_cast<jchar*>(wide.data()));
  return TvXplStr::narrow(wide);
}
