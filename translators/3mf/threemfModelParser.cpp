#include "threemfModelParser.h"

#include <cstring>

#include "threemfExtensions.h"
#include "threemfFormat.h"
#include "threemfPartName.h"
#include "threemfUnits.h"
#include "threemfValues.h"
#include "vltNames.h"
#include "vltWords.h"

namespace {

constexpr std::string_view core = THREEMF_CORE "|";
constexpr std::string_view materials = THREEMF_MATERIALS "|";
constexpr std::size_t longest_shown_uri = 120;

bool is(const char* name, const char* full) {
  return std::strcmp(name, full) == 0;
}

// Attributes of other namespaces belong to extensions and are allowed anywhere.
bool is_foreign(std::string_view attribute) {
  return attribute.find('|') != attribute.npos;
}

}  // namespace

threemfModelParser::threemfModelParser(threemfReading& reading, bool is_start, velabsOutput& output)
    : threemfXml(output), reading_(reading), is_start_(is_start) {}

threemfModelParser::~threemfModelParser() = default;

void threemfModelParser::name_space(std::string_view prefix, std::string_view uri) {
  if (places_.back() == OUTSIDE) prefixes_[std::string(prefix)] = uri;
}

void threemfModelParser::start(const char* name, const char** attributes) {
  if (skipped_ > 0) {
    ++skipped_;
    return;
  }
  // Nearly all elements of a part are these two, so they come first.
  const Place place = places_.back();
  if (place == VERTICES && is(name, THREEMF_CORE "|vertex")) {
    start_vertex(attributes);
    skipped_ = 1;
  } else if (place == TRIANGLES && is(name, THREEMF_CORE "|triangle")) {
    start_triangle(attributes);
    skipped_ = 1;
  } else {
    start_below(name, attributes);
  }
}

void threemfModelParser::end() {
  if (skipped_ > 0) {
    --skipped_;
    return;
  }
  const Place place = places_.back();
  places_.pop_back();
  if (place == OBJECT) finish_object();
}

void threemfModelParser::start_below(const char* full_name, const char** attributes) {
  const std::string_view full = full_name;
  const std::string_view name = full.starts_with(core) ? full.substr(core.size()) : std::string_view();
  switch (places_.back()) {
    case OUTSIDE:
      if (name == "model") return start_model(attributes);
      return fail("the part is no 3MF model: its first element is " + vlt_quoted(full, longest_shown_uri));
    case MODEL:
      if (name == "resources") return enter(RESOURCES);
      if (name == "build") return enter(BUILD);
      break;
    case RESOURCES:
      if (name == "object") return start_object(attributes);
      if (start_resource(full, attributes)) return;
      break;
    case MATERIALS:
      if (name == "base") return start_look(attributes, "displaycolor");
      break;
    case COLOURS:
      if (full == THREEMF_MATERIALS "|color") return start_look(attributes, "color");
      break;
    case OBJECT:
      if (name == "mesh" && builder_.begun()) return fail("an object has two meshes");
      if (name == "mesh") {
        builder_.begin(object_look_, properties_);
        return enter(MESH);
      }
      if (name == "components") return enter(COMPONENTS);
      break;
    case MESH:
      if (name == "vertices") return enter(VERTICES);
      if (name == "triangles") return enter(TRIANGLES);
      break;
    case COMPONENTS:
    case BUILD:
      if (name == (places_.back() == BUILD ? "item" : "component")) {
        threemfItem item;
        skipped_ = 1;
        if (!start_use(attributes, name, item)) return;
        if (places_.back() == BUILD) {
          part_.items.push_back(std::move(item));
        } else {
          object_.components.push_back(item.use);
        }
        return;
      }
      break;
    case VERTICES:
    case TRIANGLES:
      break;
  }
  skipped_ = 1;
  if (full.starts_with(materials)) return;
  if (name == "metadata" || name == "metadatagroup") {
    return found(velabsNOTE, "metadata is left out: titles, authors and the like");
  }
  if (!name.empty()) return found(velabsNOTE, "element " + vlt_quoted(name) + " is not known and left out");
  const std::string_view uri = full.substr(0, full.rfind('|'));
  found(velabsNOTE, "elements of the extension " + vlt_quoted(uri, longest_shown_uri) + " are left out");
}

void threemfModelParser::start_model(const char** attributes) {
  enter(MODEL);
  velLengthUnit unit = velLENGTH_MILLIMETRE;
  for (const char** a = attributes; *a; a += 2) {
    const std::string_view attribute = a[0];
    if (attribute == "unit") {
      const auto known = threemf_unit(a[1]);
      if (!known) return fail("the unit " + vlt_quoted(a[1]) + " is none of 3MF");
      unit = *known;
    } else if (attribute == "requiredextensions") {
      if (!check_extensions(a[1])) return;
    } else if (attribute != "recommendedextensions" && attribute != "version") {
      unknown_attribute("model", attribute);
    }
  }
  if (is_start_) reading_.unit = unit;
  factor_ = unit == reading_.unit ? reading_.scale : reading_.scale * vel_length_ratio(unit, reading_.unit);
}

bool threemfModelParser::check_extensions(std::string_view prefixes) {
  while (true) {
    const std::string_view prefix = vlt_take_word(prefixes);
    if (prefix.empty()) return true;
    const auto uri = prefixes_.find(std::string(prefix));
    if (uri == prefixes_.end()) {
      fail("the required extension " + vlt_quoted(prefix) + " has no namespace");
      return false;
    }
    if (!check_extension(uri->second)) return false;
  }
}

bool threemfModelParser::check_extension(const std::string& uri) {
  const threemfExtension extension = threemf_extension(uri);
  const std::string subject = "the model requires the extension " + vlt_quoted(uri, longest_shown_uri) + ", ";
  switch (extension.effect) {
    case threemfExtension::REPLACES_GEOMETRY:
      fail(subject + "which replaces meshes by " + std::string(extension.adds) +
           "; save it as plain triangles in the program that it comes from");
      return false;
    case threemfExtension::ADDS_GEOMETRY:
      found(velabsWARNING, subject + "whose " + std::string(extension.adds) + " are left out: only triangles are read");
      return true;
    case threemfExtension::KEEPS_GEOMETRY:
      found(velabsNOTE, subject + "whose " + std::string(extension.adds) + " are left out");
      return true;
    case threemfExtension::UNKNOWN:
      found(velabsWARNING, subject + "which is not known: what it adds to the model is left out");
      return true;
    case threemfExtension::READ:
      return true;
  }
  return true;
}

bool threemfModelParser::start_resource(std::string_view name, const char** attributes) {
  if (name == THREEMF_CORE "|basematerials") {
    enter(MATERIALS);
    return start_group(attributes, false, false);
  }
  if (name == THREEMF_MATERIALS "|colorgroup") {
    enter(COLOURS);
    return start_group(attributes, true, false);
  }
  // Resources that faces may refer to have a numeric id, also in unknown extensions. Other resources of extensions may
  // have any id.
  const bool of_3mf = name.starts_with(core) || name.starts_with(materials);
  std::uint32_t id = 0;
  for (const char** a = attributes; *a; a += 2) {
    if (!is(a[0], "id") || !(of_3mf || threemf_index(a[1], id))) continue;
    if (!start_group(attributes, false, true)) return true;
  }
  if (!name.starts_with(materials)) return false;
  const std::string_view local = name.substr(materials.size());
  if (reading_.looks && (local == "texture2dgroup" || local == "compositematerials" || local == "multiproperties")) {
    found(velabsNOTE, std::string(local) + " is left out: faces that use it have no colour from it");
  }
  return false;
}

bool threemfModelParser::start_group(const char** attributes, bool colours, bool left_out) {
  bool has_id = false;
  std::uint32_t id = 0;
  for (const char** a = attributes; *a; a += 2) {
    if (!is(a[0], "id")) continue;
    has_id = true;
    if (!number("id", a[1], id)) return false;
  }
  if (!has_id) {
    fail("a resource has no id");
  } else if (!properties_.add_group(id, colours, left_out) || part_.object_by_id.contains(id)) {
    fail("there are several resources " + std::to_string(id));
  }
  return !failed();
}

void threemfModelParser::start_look(const char** attributes, const char* colour_name) {
  skipped_ = 1;
  annMaterial look;
  bool has_colour = false;
  for (const char** a = attributes; *a; a += 2) {
    if (is(a[0], colour_name)) {
      const std::optional<annColour> colour = threemf_colour(a[1]);
      if (!colour) return bad_value(a[0], a[1]);
      look.colour = *colour;
      has_colour = true;
    } else if (is(a[0], "name")) {
      look.name = a[1];
    } else {
      unknown_attribute("base", a[0]);
    }
  }
  if (!has_colour) return fail("a " + std::string(colour_name) + " is missing");
  properties_.add_look(std::move(look));
}

void threemfModelParser::start_object(const char** attributes) {
  enter(OBJECT);
  object_ = {};
  object_.line = line();
  builder_.reset();
  object_look_ = threemfProperties::no_look;
  object_group_ = 0;
  std::uint32_t index = 0;
  bool has_id = false, has_group = false, has_index = false;
  for (const char** a = attributes; *a; a += 2) {
    const std::string_view attribute = a[0], value = a[1];
    if (attribute == "id") {
      has_id = true;
      if (!number(attribute, a[1], id_)) return;
    } else if (attribute == "pid") {
      has_group = true;
      if (!number(attribute, a[1], object_group_)) return;
    } else if (attribute == "pindex") {
      has_index = true;
      if (!number(attribute, a[1], index)) return;
    } else if (attribute == "name") {
      object_.name = value;
    } else if (attribute == "partnumber") {
      object_.part_number = value;
    } else if (attribute == "type") {
      if (value == "support" || value == "solidsupport" || value == "other") object_.type = value;
    } else if (attribute != "thumbnail") {
      unknown_attribute("object", attribute);
    }
  }
  if (!has_id) return fail("an object has no id");
  if (part_.object_by_id.contains(id_) || properties_.group(id_)) {
    return fail("there are several resources " + std::to_string(id_));
  }
  if (!has_group || !has_index || !reading_.looks) return;
  threemfMeshBuilder::Looks looks;
  if (read_looks(object_group_, &index, 1, looks)) object_look_ = looks[0];
}

void threemfModelParser::finish_object() {
  if (builder_.begun()) {
    const bool empty = builder_.triangle_count() == 0;
    object_.mesh = builder_.finish(object_.colour);
    if (empty) object_.mesh = nullptr;
  }
  if (!object_.mesh && object_.components.empty()) {
    found(velabsNOTE, "objects without triangles or components are left out");
  }
  part_.object_by_id.emplace(id_, static_cast<std::uint32_t>(part_.objects.size()));
  part_.objects.push_back(std::move(object_));
}

bool threemfModelParser::start_use(const char** attributes, std::string_view element, threemfItem& item) {
  threemfUse& use = item.use;
  use.line = line();
  bool has_id = false;
  for (const char** a = attributes; *a; a += 2) {
    const std::string_view attribute = a[0];
    if (attribute == "objectid") {
      has_id = true;
      if (!number(attribute, a[1], use.id)) return false;
    } else if (attribute == "transform") {
      const std::optional<annTransform> transform = threemf_transform(a[1]);
      if (!transform) {
        fail("the transform " + vlt_quoted(a[1]) + " is not made of twelve finite numbers");
        return false;
      }
      use.transform = *transform;
      for (std::size_t i = 3; i < 12; i += 4) use.transform.m[i] *= factor_;
    } else if (attribute == THREEMF_PRODUCTION "|path") {
      const std::optional<std::string> key = a[1][0] == '/' ? threemf_part_key(a[1]) : std::nullopt;
      if (!key) {
        fail("the path " + vlt_quoted(a[1]) + " is none of a part in the package");
        return false;
      }
      if (!is_start_) {
        fail("only the start part may refer to other model parts");
        return false;
      }
      const auto [path, added] = part_.path_numbers.try_emplace(*key, static_cast<std::uint32_t>(part_.paths.size()));
      if (added) part_.paths.push_back(*key);
      use.path = path->second;
    } else if (attribute == THREEMF_INSTANCE "|name") {
      use.instance_name = a[1];
    } else if (attribute == "partnumber" && element == "item") {
      item.part_number = a[1];
    } else if (attribute != "printable") {
      unknown_attribute(element, attribute);
    }
  }
  if (!has_id) {
    fail("an " + std::string(element) + " names no object");
    return false;
  }
  if (use.path != threemfUse::own_part) return true;
  const auto object = part_.object_by_id.find(use.id);
  if (object == part_.object_by_id.end()) {
    const std::string where = element == "item" ? "" : "object " + std::to_string(id_) + ": ";
    fail(where + "there is no object " + std::to_string(use.id) + " before this place");
    return false;
  }
  use.object = object->second;
  return true;
}

bool threemfModelParser::number(std::string_view attribute, const char* text, std::uint32_t& value) {
  if (threemf_index(text, value)) return true;
  bad_value(attribute, text);
  return false;
}

void threemfModelParser::bad_value(std::string_view attribute, std::string_view text) {
  fail(vlt_quoted(text) + " is no value for " + std::string(attribute));
}

void threemfModelParser::unknown_attribute(std::string_view element, std::string_view attribute) {
  if (is_foreign(attribute)) return;
  found(velabsNOTE,
        "attribute " + vlt_quoted(attribute) + " of \"" + std::string(element) + "\" is not known and left out");
}

void threemfModelParser::found(velabsSeverity severity, const std::string& what) {
  reading_.found(severity, what, is_start_, line());
}
