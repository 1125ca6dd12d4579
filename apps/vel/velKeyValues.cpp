#include "velKeyValues.h"

#include <algorithm>

#include "velMessages.h"
#include "velText.h"
#include "velValidator.h"
#include "vlnResourceHandler.h"
#include "vlnResourceTypes.h"

namespace {

std::string name_of(const vlnResourceType* type) {
  if (dynamic_cast<const vlnResourceType_utBool*>(type)) return "true/false";
  if (dynamic_cast<const vlnFiniteResourceType*>(type)) return "one of";
  if (dynamic_cast<const vlnResourceType_int*>(type)) return "whole";
  if (dynamic_cast<const vlnResourceType_double*>(type)) return "real";
  return "text";
}

// The value with dashes for blanks, so that it is one argument.
std::string as_word(const utString& value) {
  std::string word = value.str();
  std::replace(word.begin(), word.end(), ' ', '-');
  return word;
}

}  // namespace

velKeyValues vel_values_of(const utString& key) {
  if (std::vector<std::string> words = velValidator::words(key); !words.empty()) return {"one of", std::move(words)};
  const vlnResourceType* type = vlnResourceType::look_up_type(key);
  utStringcoDList texts;
  if (type) type->valid_strings(texts);
  if (dynamic_cast<const vlnResourceType_velLengthUnit*>(type)) velLengthUnit_abbreviations(texts);
  velKeyValues values{name_of(type), {}};
  for (const utString& text : texts) {
    if (velValidator::validate_text(key, text)) values.allowed.push_back(as_word(text));
  }
  if (dynamic_cast<const vlnResourceType_utBool*>(type)) values.allowed.insert(values.allowed.end(), {"0", "1"});
  return values;
}

std::string vel_shown_value(const utString& key, const utString& value) {
  return vel_values_of(key).type == "one of" ? as_word(value) : value.str();
}

std::string vel_range_of(const utString& key) {
  const auto* bounds = velValidator::bounds(key);
  return bounds ? vel_text(bounds->range) : "";
}

std::string vel_refusal(const utString& key, const utString& value) {
  velValidator validator;
  velTableInstance table;
  const bool fits = vlnResourceHandler(&validator, key).validate(value) && table.add_resource(key, value);
  if (fits && velValidator::validate_text(key, value)) return "";
  if (const auto* bounds = velValidator::bounds(key)) return vel_text(bounds->text);
  const velKeyValues values = vel_values_of(key);
  if (values.type == "whole") return vel_text(velMSG_TAKES_WHOLE);
  if (values.type == "real") return vel_text(velMSG_TAKES_REAL);
  if (key.case_compare("BACKGROUND")) return vel_text(velMSG_TAKES_BACKGROUND);
  if (values.type == "text") return vel_text(velMSG_TAKES_OTHER_TEXT);
  return vel_text(velMSG_TAKES_ONE_OF, {vel_joined(values.allowed)});
}
