#include "apElfFile.h"

#include <elf.h>
#include <link.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr unsigned char own_class = sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32;

bool holds(const apRegularFile& file, std::uint64_t offset, std::uint64_t bytes) {
  return offset <= file.size() && bytes <= file.size() - offset;
}

}  // namespace

utString ap_missing_part_of_library(const apRegularFile& file) {
  apStatus status;
  ElfW(Ehdr) header = {};
  const std::size_t got = file.read_at(0, reinterpret_cast<char*>(&header), sizeof header, status);
  if (got < sizeof header || std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0) return {};
  if (header.e_ident[EI_CLASS] != own_class || header.e_phentsize != sizeof(ElfW(Phdr))) return {};

  std::vector<ElfW(Phdr)> segments(header.e_phnum);
  const std::size_t bytes = segments.size() * sizeof(ElfW(Phdr));
  const utString cut_short = "it is cut short; copy or build it again";
  if (!holds(file, header.e_phoff, bytes)) return cut_short;
  if (file.read_at(header.e_phoff, reinterpret_cast<char*>(segments.data()), bytes, status) < bytes) return cut_short;
  for (const ElfW(Phdr) & segment : segments) {
    if (!holds(file, segment.p_offset, segment.p_filesz)) return cut_short;
  }
  return {};
}
