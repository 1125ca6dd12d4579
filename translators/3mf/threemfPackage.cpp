#include "threemfPackage.h"

#include <zip.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "threemfFormat.h"
#include "vltProgress.h"

namespace {

// The first level with lazy matching: lower levels save no time, higher ones little space.
constexpr zip_uint32_t deflate_level = 4;
constexpr std::size_t progress_step = std::size_t{1} << 14;
// Up to this size an archive does not need ZIP64, which some programs cannot read.
constexpr std::uint64_t most_bytes_in_narrow_form = 4'200'000'000;
// The first date that an archive can store.
constexpr zip_uint16_t first_date = 1 << 5 | 1;

constexpr std::string_view content_types =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">\n"
    "<Default Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>\n"
    "<Default Extension=\"model\" ContentType=\"application/vnd.ms-package.3dmanufacturing-3dmodel+xml\"/>\n"
    "</Types>\n";

constexpr std::string_view relationships =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<Relationships xmlns=\"" THREEMF_RELATIONSHIPS
    "\">\n"
    "<Relationship Target=\"/3D/3dmodel.model\" Id=\"rel0\" Type=\"" THREEMF_MODEL_RELATION
    "\"/>\n"
    "</Relationships>\n";

// Gives the model's text to the archive on demand.
class ModelSource {
 public:
  ModelSource(threemfModelText& model, velabsOutput& output)
      : model_(model), progress_(output, std::max<std::size_t>(model.work(), 1), progress_step) {
    zip_error_init(&error_);
  }
  ~ModelSource() { zip_error_fini(&error_); }
  ModelSource(const ModelSource&) = delete;
  ModelSource& operator=(const ModelSource&) = delete;

  bool cancelled() const { return cancelled_; }

  static zip_int64_t serve(void* self, void* data, zip_uint64_t size, zip_source_cmd_t command) {
    return static_cast<ModelSource*>(self)->serve(data, size, command);
  }

 private:
  zip_int64_t serve(void* data, zip_uint64_t size, zip_source_cmd_t command) {
    switch (command) {
      case ZIP_SOURCE_OPEN:
      case ZIP_SOURCE_CLOSE:
      case ZIP_SOURCE_FREE:
        return 0;
      case ZIP_SOURCE_READ:
        return read(static_cast<char*>(data), size);
      case ZIP_SOURCE_STAT:
        return tell_size(data, size);
      case ZIP_SOURCE_ERROR:
        return zip_error_to_data(&error_, data, size);
      case ZIP_SOURCE_SUPPORTS:
        return ZIP_SOURCE_SUPPORTS_READABLE | ZIP_SOURCE_MAKE_COMMAND_BITMASK(ZIP_SOURCE_SUPPORTS);
      default:
        zip_error_set(&error_, ZIP_ER_OPNOTSUPP, 0);
        return -1;
    }
  }

  zip_int64_t read(char* to, std::size_t room) {
    if (rest_.empty()) {
      cancelled_ = !progress_.reached(model_.work_done());
      if (!cancelled_) rest_ = model_.next();
      if (cancelled_ || model_.overflow()) {
        zip_error_set(&error_, ZIP_ER_CANCELLED, 0);
        return -1;
      }
    }
    const std::size_t count = std::min(room, rest_.size());
    std::memcpy(to, rest_.data(), count);
    rest_.remove_prefix(count);
    return static_cast<zip_int64_t>(count);
  }

  // Only an upper bound is known before the text is made; it selects between ZIP and ZIP64.
  zip_int64_t tell_size(void* data, zip_uint64_t size) {
    if (size < sizeof(zip_stat_t)) return -1;
    auto* stat = static_cast<zip_stat_t*>(data);
    zip_stat_init(stat);
    if (model_.size_bound() <= most_bytes_in_narrow_form) {
      stat->size = model_.size_bound();
      stat->valid = ZIP_STAT_SIZE;
    }
    return sizeof(zip_stat_t);
  }

  threemfModelText& model_;
  vltProgress progress_;
  std::string_view rest_;
  zip_error_t error_;
  bool cancelled_ = false;
};

bool add(zip_t* archive, const char* name, zip_source_t* source) {
  if (!source) return false;
  const zip_int64_t index = zip_file_add(archive, name, source, ZIP_FL_ENC_UTF_8);
  if (index < 0) {
    zip_source_free(source);
    return false;
  }
  const auto number = static_cast<zip_uint64_t>(index);
  return zip_set_file_compression(archive, number, ZIP_CM_DEFLATE, deflate_level) == 0 &&
         zip_file_set_dostime(archive, number, 0, first_date, 0) == 0;
}

bool add(zip_t* archive, const char* name, std::string_view text) {
  return add(archive, name, zip_source_buffer(archive, text.data(), text.size(), 0));
}

bool copy(zip_source_t* packed, velabsOfStream& stream) {
  if (zip_source_open(packed) != 0) return false;
  zip_int64_t count = 0;
  while (stream.good()) {
    constexpr std::size_t piece = std::size_t{1} << 16;
    count = zip_source_read(packed, stream.reserve(piece), piece);
    if (count <= 0) break;
    stream.advance(static_cast<std::size_t>(count));
  }
  zip_source_close(packed);
  return count == 0;
}

}  // namespace

velabsResult threemf_write_package(threemfModelText& model, velabsOfStream& stream, velabsOutput& output) {
  auto fail = [&](const std::string& reason) {
    output.message(velabsERROR, utString("the package cannot be made: " + reason));
    return velabsFAILED;
  };
  zip_error_t error;
  zip_error_init(&error);
  const std::unique_ptr<zip_source_t, decltype(&zip_source_free)> packed(
      zip_source_buffer_create(nullptr, 0, 0, &error), zip_source_free);
  if (!packed) return fail(zip_error_strerror(&error));
  zip_source_keep(packed.get());
  zip_t* archive = zip_open_from_source(packed.get(), ZIP_CREATE | ZIP_TRUNCATE, &error);
  if (!archive) {
    zip_source_free(packed.get());
    return fail(zip_error_strerror(&error));
  }
  ModelSource source(model, output);
  if (!add(archive, "[Content_Types].xml", content_types) || !add(archive, "_rels/.rels", relationships) ||
      !add(archive, "3D/3dmodel.model", zip_source_function(archive, ModelSource::serve, &source)) ||
      zip_close(archive) != 0) {
    const std::string reason = zip_strerror(archive);
    zip_discard(archive);
    if (source.cancelled()) return velabsCANCELLED;
    return fail(model.overflow() ? "a length is too large for a number once it is scaled" : reason);
  }
  if (!copy(packed.get(), stream)) return stream.good() ? fail("its packed bytes are lost") : velabsFAILED;
  return velabsDONE;
}
