#include "exaWriting.h"

#include <TopExp.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <algorithm>
#include <cstdlib>
#include <ctime>

#include "velMultipleFileOption.h"
#include "vltNames.h"
#include "vltScale.h"
#include "vltUtf8.h"

namespace {

constexpr std::size_t longest_name = 100;  // leaves room for the rest of a file name, which has at most 255 bytes

std::string extension_of(const utString& file) {
  const std::string name = file.str().substr(file.str().rfind('/') + 1);
  const std::size_t dot = name.rfind('.');
  return dot == name.npos || dot == 0 ? "" : name.substr(dot + 1);
}

// A part name with only characters that are valid in file names on all systems.
std::string file_name_of(const utString& part) {
  std::string name = vlt_one_line(part);
  for (char& c : name) {
    const bool plain = std::isalnum(static_cast<unsigned char>(c)) || c == '-' || c == '_' || (c & 0x80);
    if (!plain) c = '_';
  }
  return name.empty() ? "part" : std::string(vlt_utf8_front(name, longest_name));
}

}  // namespace

velLengthUnit exa_written_unit(const velTableInstance& resources, const annDocument& document) {
  const velLengthUnit unit = vlt_stated_unit(resources, document);
  return unit == velLENGTH_UNSPECIFIED ? velLENGTH_MILLIMETRE : unit;
}

bool exa_write_files(const exaProducts& products, const velTableInstance& resources, velabsOfStream& stream,
                     velabsOutput& output, const exaWriteFile& write) {
  const auto files = resources.value<velMultipleFileOption>("MULTIPLE_FILES", velMULTIPLE_ONE_FILE);
  if (files == velMULTIPLE_ONE_FILE) return write(products.products(), products.top(), stream);
  if (!stream.has_room_beside()) {
    output.message(velabsERROR, "one file for each part needs an output that is a file");
    return false;
  }

  const std::string extension = extension_of(stream.target());
  vltUniqueNames names;
  std::size_t count = 0;
  for (const exaProduct& product : products.products()) {
    if (product.shape.IsNull()) continue;
    if (output.cancelled()) return false;
    const std::string name = names.unique(file_name_of(product.name));
    velabsOfStream& file = count++ == 0 ? stream : stream.companion(utString(name + "." + extension));
    if (!write({product}, {{0, gp_Trsf()}}, file)) return false;
  }
  output.message(velabsNOTE, utString(std::to_string(count) + (count == 1 ? " part is" : " parts are") +
                                      " written, each to a file of its own, without the places that they stand in"));
  return true;
}

void exa_tell_losses(const annDocument& document, const char* format, bool holds_colours, velabsOutput& output) {
  bool normals = false, colours = false, names = false;
  for (const annPlacedBody& placed : ann_placed_bodies(document)) {
    const annMesh* mesh = placed.node->body.mesh.get();
    if (!mesh || placed.node->body.shape) continue;
    normals = normals || mesh->has_normals();
    colours = colours || !mesh->vertices->colours.empty();
    names = names || std::any_of(mesh->materials.begin(), mesh->materials.end(),
                                 [](const annMaterial& material) { return !material.name.empty(); });
  }
  auto note = [&](bool lost, const char* what) {
    if (lost) output.message(velabsNOTE, utString(format) + " " + what);
  };
  note(normals, "holds no vertex normals: they are left out");
  note(colours, "holds no vertex colours: they are left out");
  note(names && holds_colours, "holds no names of materials: their colours are written without");
}

std::size_t exa_face_count(const std::vector<exaProduct>& products) {
  std::size_t count = 0;
  for (const exaProduct& product : products) {
    TopTools_IndexedMapOfShape faces;
    if (!product.shape.IsNull()) TopExp::MapShapes(product.shape, TopAbs_FACE, faces);
    count += static_cast<std::size_t>(faces.Extent());
  }
  return count;
}

bool exa_tell_missing(std::size_t faces, std::size_t written, const char* format, const std::string& reason,
                      velabsOutput& output) {
  if (written >= faces) return true;
  const std::string missing = std::to_string(faces - written) + " of its " + std::to_string(faces) + " faces",
                    what = std::string(" be written as ") + format, advice = "; BREP holds them as they are" + reason;
  if (written == 0) {
    output.message(velabsERROR, utString("none of its faces can" + what + advice));
    return false;
  }
  output.message(velabsWARNING, utString(missing + " cannot" + what + " and are left out" + advice));
  return true;
}

std::string exa_time_stamp(const char* format) {
  const char* const epoch = std::getenv("SOURCE_DATE_EPOCH");
  const std::time_t start = 0, seconds = epoch ? static_cast<std::time_t>(std::strtoll(epoch, nullptr, 10)) : start;
  std::tm parts{};
  if (!gmtime_r(&seconds, &parts)) gmtime_r(&start, &parts);
  char shown[40];
  return std::string(shown, std::strftime(shown, sizeof shown, format, &parts));
}

utString exa_stem(const utString& file) {
  std::string name = file.str().substr(file.str().rfind('/') + 1);
  const std::size_t dot = name.rfind('.');
  if (dot != name.npos && dot > 0) name.resize(dot);
  return utString(name);
}
