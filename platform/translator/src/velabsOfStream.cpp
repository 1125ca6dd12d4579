#include "velabsOfStream.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <string>
#include <utility>

#include "velabsBackgroundWriter.h"
#include "velabsReplacementFile.h"

namespace {

bool is_there(const std::string& path) {
  std::error_code error;
  return std::filesystem::symlink_status(path, error).type() != std::filesystem::file_type::not_found;
}

utString with_extension(const utString& target, const utString& extension, const std::string& suffix = "") {
  const std::string& path = target.str();
  const std::size_t name = path.rfind('/') + 1;
  const std::size_t dot = path.rfind('.');
  const bool has_extension = dot != path.npos && dot > name;
  return path.substr(0, has_extension ? dot : path.npos) + suffix + "." + extension.str();
}

// A file of the name that is wished for is replaced along with the target or not at all.
utString companion_name(const utString& target, const utString& extension) {
  utString name = with_extension(target, extension);
  if (name == target || is_there(target.str())) return name;
  for (unsigned number = 1; is_there(name.str()); ++number) {
    name = with_extension(target, extension, "_" + std::to_string(number));
  }
  return name;
}

}  // namespace

velabsOfStream::velabsOfStream(utString target) : target_(std::move(target)) {}

velabsOfStream::~velabsOfStream() = default;

void velabsOfStream::open() {
  if (!buffer_) buffer_ = std::make_unique_for_overwrite<char[]>(buffer_size);
  if (!file_ && !discards_ && good()) file_ = velabsReplacementFile::open(target_, failure_);
}

void velabsOfStream::hand_over() {
  if (file_ && good()) {
    if (!writer_) writer_ = std::make_unique<velabsBackgroundWriter>(*file_);
    writer_->write(buffer_, used_, buffer_size, failure_);
  }
  used_ = 0;
}

void velabsOfStream::put(std::string_view bytes) {
  if (writer_) writer_->wait(failure_);
  if (file_ && good()) file_->write(bytes, failure_);
}

void velabsOfStream::write(std::string_view bytes) {
  if (bytes.empty() || !good()) return;
  if (!buffer_) open();
  if (bytes.size() >= buffer_size) {
    // Both go to the file as they stand.
    put({buffer_.get(), used_});
    used_ = 0;
    return put(bytes);
  }
  if (bytes.size() > buffer_size - used_) hand_over();
  std::memcpy(buffer_.get() + used_, bytes.data(), bytes.size());
  used_ += bytes.size();
}

char* velabsOfStream::reserve(std::size_t size) {
  if (!buffer_) open();
  if (!good()) used_ = 0;
  if (size > buffer_size - used_) hand_over();
  return buffer_.get() + used_;
}

velabsOfStream& velabsOfStream::companion(const utString& extension) {
  for (const auto& companion : companions_) {
    if (companion->extension_ == extension) return *companion;
  }
  const utString name = companion_name(target_, extension);
  auto& companion = *companions_.emplace_back(std::make_unique<velabsOfStream>(name));
  companion.extension_ = extension;
  if (name == target_) companion.failure_ = "a file beside the output would have its name";
  // What goes to a device or a pipe has nothing beside it.
  companion.discards_ = !has_room_beside();
  return companion;
}

utString velabsOfStream::failure_of_any() const {
  if (!good()) return failure_;
  for (const auto& companion : companions_) {
    if (!companion->good()) return companion->target_ + ": " + companion->failure_;
  }
  return {};
}

bool velabsOfStream::has_room_beside() const {
  return !velabsReplacementFile::is_written_directly(target_);
}

bool velabsOfStream::finish() {
  open();
  put({buffer_.get(), used_});
  used_ = 0;
  writer_.reset();
  if (good() && file_) file_->settle(failure_);
  return good();
}

bool velabsOfStream::commit() {
  if (committed_) return good();
  committed_ = true;

  std::vector<velabsOfStream*> all;
  for (const auto& companion : companions_) all.push_back(companion.get());
  all.push_back(this);

  // All that is likely to fail comes before the first target is touched.
  auto fail = [&](const velabsOfStream& stream) {
    if (good()) failure_ = stream.target_ + ": " + stream.failure_;
    for (velabsOfStream* each : all) {
      each->writer_.reset();
      each->file_.reset();
    }
    return false;
  };
  for (velabsOfStream* stream : all) {
    if (!stream->finish()) return fail(*stream);
  }
  for (velabsOfStream* stream : all) {
    if (stream->file_ && !stream->file_->replace(stream->failure_)) return fail(*stream);
  }
  for (velabsOfStream* stream : all) {
    if (stream->file_) stream->file_->keep();
    stream->file_.reset();
  }
  return true;
}
