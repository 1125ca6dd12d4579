#pragma once

#include <streambuf>
#include <string_view>

#include "exaExport.h"
#include "velabsOfStream.h"
#include "velabsOutput.h"

// Bytes in memory as a stream for the kernel's readers. With an output, they are passed in pieces: each piece reports
// progress from 0 to `percent`, and cancelling ends the data.
class VELEXACT_API exaInputBuffer : public std::streambuf {
 public:
  explicit exaInputBuffer(std::string_view bytes, velabsOutput* output = nullptr, int percent = 0);

 protected:
  int_type underflow() override;
  pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode mode) override;
  pos_type seekpos(pos_type position, std::ios_base::openmode mode) override;

 private:
  void hand_over(std::size_t at);

  std::string_view bytes_;
  velabsOutput* output_;
  int percent_;
  int reads_behind_end_ = 0;
};

// Lets the kernel's writers write to an output stream.
class VELEXACT_API exaOutputBuffer : public std::streambuf {
 public:
  explicit exaOutputBuffer(velabsOfStream& stream) : stream_(stream) {}

 protected:
  int_type overflow(int_type c) override;
  std::streamsize xsputn(const char* bytes, std::streamsize count) override;

 private:
  velabsOfStream& stream_;
};
