// site_texts_fuzz.cpp - any bytes as the file of a report's texts: each text is sound, short and in one line, and what is
// written of them reads back as it was.
#include <cstdint>
#include <string>
#include <string_view>

#include "demand.h"
#include "report_pdf/site_texts.h"
#include "runtime/utf8.h"

using namespace sondera;
using fuzz::Demand;

namespace {

bool IsKept(const std::string& text) {
  return text.size() <= 200 && ValidText(text) == text && !text.starts_with(' ') && !text.ends_with(' ');
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const SiteTexts texts = SiteTextsIn({reinterpret_cast<const char*>(data), size});
  const SiteTexts again = SiteTextsIn(SiteTextsLines(texts));
  for (const auto text : {&SiteTexts::title, &SiteTexts::site, &SiteTexts::client, &SiteTexts::operatorName,
                          &SiteTexts::date}) {
    Demand(IsKept(texts.*text));
    Demand(again.*text == texts.*text);
  }
  return 0;
}
