// POSIX backend: only calls of the POSIX systems we build for (Linux with
// glibc) live here; portable logic belongs above, in src/platform.
//
// The locale query: the C library's locale functions (newlocale,
// nl_langinfo_l, iconv). Turning what they give into format settings is
// portable code in platform/localeinfo.cpp.

#include <iconv.h>
#include <langinfo.h>
#include <locale.h>

#include <cstdlib>
#include <cstring>

#include "platform/backend.h"
#include "platform/localeinfo.h"

namespace jx::backend {

namespace {

// The locale name that decides LC_TIME, by the POSIX order of the variables.
std::string TimeLocaleName() {
  for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value && *value) return value;
  }
  return "C";
}

bool IsClassicLocale(const std::string& name) {
  return name == "C" || name == "POSIX" || name.rfind("C.", 0) == 0;
}

// `text` in the locale's code set, as UTF-8; "" when it does not convert.
std::string ToUtf8(const char* text, const char* codeset) {
  if (std::strcmp(codeset, "UTF-8") == 0) return text;
  iconv_t converter = iconv_open("UTF-8", codeset);
  if (converter == reinterpret_cast<iconv_t>(-1)) return "";
  std::string in(text), out(in.size() * 4, '\0');
  char* in_ptr = in.data();
  char* out_ptr = out.data();
  size_t in_left = in.size(), out_left = out.size();
  const bool ok = iconv(converter, &in_ptr, &in_left, &out_ptr, &out_left) != static_cast<size_t>(-1);
  iconv_close(converter);
  out.resize(out.size() - out_left);
  return ok ? out : "";
}

class LocaleTexts {
 public:
  explicit LocaleTexts(locale_t locale) : locale_(locale), codeset_(nl_langinfo_l(CODESET, locale)) {}
  std::string operator()(nl_item item) const { return ToUtf8(nl_langinfo_l(item, locale_), codeset_.c_str()); }

 private:
  locale_t locale_;
  std::string codeset_;
};

void ReadNames(const LocaleTexts& text, TLocaleTimeInfo& info) {
  const nl_item months[] = {MON_1, MON_2, MON_3, MON_4, MON_5, MON_6, MON_7, MON_8, MON_9, MON_10, MON_11, MON_12};
  const nl_item short_months[] = {ABMON_1, ABMON_2, ABMON_3, ABMON_4,  ABMON_5,  ABMON_6,
                                  ABMON_7, ABMON_8, ABMON_9, ABMON_10, ABMON_11, ABMON_12};
  const nl_item days[] = {DAY_1, DAY_2, DAY_3, DAY_4, DAY_5, DAY_6, DAY_7};
  const nl_item short_days[] = {ABDAY_1, ABDAY_2, ABDAY_3, ABDAY_4, ABDAY_5, ABDAY_6, ABDAY_7};
  for (size_t i = 0; i < 12; ++i) {
    info.MonthNames[i] = text(months[i]);
    info.ShortMonthNames[i] = text(short_months[i]);
  }
  for (size_t i = 0; i < 7; ++i) {
    info.DayNames[i] = text(days[i]);
    info.ShortDayNames[i] = text(short_days[i]);
  }
}

}  // namespace

// A locale object of its own, so the process's global locale stays as it is.
bool ReadLocaleTimeInfo(TLocaleTimeInfo& info) {
  const std::string name = TimeLocaleName();
  if (IsClassicLocale(name)) return false;
  // The texts come in the code set of the same locale's LC_CTYPE.
  locale_t locale = newlocale(LC_TIME_MASK | LC_CTYPE_MASK, name.c_str(), static_cast<locale_t>(0));
  if (locale == static_cast<locale_t>(0)) return false;
  const LocaleTexts text(locale);
  info.DateFormat = text(D_FMT);
  info.TimeFormat = text(T_FMT);
  info.TimeAmPmFormat = text(T_FMT_AMPM);
  info.AmString = text(AM_STR);
  info.PmString = text(PM_STR);
  ReadNames(text, info);
  freelocale(locale);
  return true;
}

}  // namespace jx::backend
