#include "velabsOfStream.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

#include "velabsBackgroundWriter.h"
#include "velabsCompanionName.h"
#include "velabsReplacementFile.h"

velabsOfStream::velabsOfStream(utString target, std::vector<utString> inputs)
    : target_(std::move(target)), inputs_(std::move(inputs)) {}

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
    // Write both directly, without copying.
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
  const velabsCompanionName chosen(target_, extension, inputs_);
  auto& companion = *companions_.emplace_back(std::make_unique<velabsOfStream>(chosen.name));
  companion.extension_ = extension;
  companion.wished_ = chosen.wished;
  if (chosen.name == target_) companion.failure_ = "a file beside the output would have its name";
  // A device or a pipe cannot have sidecar files.
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

utString velabsOfStream::told_of_companions() const {
  auto is_elsewhere = [](const auto& companion) {
    return !companion->discards_ && companion->target_ != companion->wished_;
  };
  const auto first = std::find_if(companions_.begin(), companions_.end(), is_elsewhere);
  if (first == companions_.end()) return {};
  const auto count = std::count_if(first, companions_.end(), is_elsewhere);
  const std::string others = count > 1 ? ", and so for " + std::to_string(count - 1) + " more" : "";
  return (*first)->wished_ + " is not known to belong to this output alone and stays as it is: " + (*first)->target_ +
         " is written instead" + others;
}

bool velabsOfStream::has_room_beside() const {
  return !velabsReplacementFile::is_written_directly(target_);
}

bool velabsOfStream::finish() {
  open();
  put({buffer_.get(), used_});
  used_ = 0;
  writer_.reset();
  return good();
}

bool velabsOfStream::settle(bool on_disk) {
  return !file_ || file_->settle(on_disk, failure_);
}

bool velabsOfStream::commit() {
  if (committed_) return good();
  committed_ = true;

  std::vector<velabsOfStream*> all;
  for (const auto& companion : companions_) all.push_back(companion.get());
  all.push_back(this);

  // Do everything that is likely to fail before the first target is changed.
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
  // If one of them replaces an old file, that file may depend on all the others.
  const bool on_disk = std::any_of(
      all.begin(), all.end(), [](const velabsOfStream* stream) { return stream->file_ && stream->file_->has_old(); });
  for (velabsOfStream* stream : all) {
    if (!stream->settle(on_disk)) return fail(*stream);
  }
  for (velabsOfStream* stream : all) {
    if (!stream->file_) continue;
    // After the last one there are no further steps that can fail.
    const bool done = stream == this ? file_->take(failure_) : stream->file_->replace(stream->failure_);
    if (!done) return fail(*stream);
  }
  for (velabsOfStream* stream : all) {
    if (stream->file_) stream->file_->keep();
    stream->file_.reset();
  }
  return true;
}
