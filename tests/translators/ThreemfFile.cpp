#include "ThreemfFile.h"

#include <zip.h>

#include <stdexcept>

std::string pack(const TemporaryDirectory& directory, const Parts& parts, bool encrypt) {
  const std::string file = directory / "case.3mf";
  zip_t* archive = zip_open(file.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
  for (const auto& [name, content] : parts) {
    zip_source_t* source = zip_source_buffer(archive, content.data(), content.size(), 0);
    const auto index = static_cast<zip_uint64_t>(zip_file_add(archive, name.c_str(), source, ZIP_FL_ENC_UTF_8));
    zip_set_file_compression(archive, index, ZIP_CM_DEFLATE, 1);
    if (encrypt) zip_file_set_encryption(archive, index, ZIP_EM_AES_256, "word");
  }
  if (zip_close(archive) != 0) throw std::runtime_error(zip_strerror(archive));
  return file;
}

std::string unpack(const std::string& file, const char* part) {
  zip_t* archive = zip_open(file.c_str(), ZIP_RDONLY, nullptr);
  zip_stat_t stat;
  if (!archive || zip_stat(archive, part, 0, &stat) != 0) throw std::runtime_error(part);
  std::string content(stat.size, '\0');
  zip_file_t* opened = zip_fopen(archive, part, 0);
  zip_fread(opened, content.data(), content.size());
  zip_fclose(opened);
  zip_discard(archive);
  return content;
}
