#include "vlnFileFactory.h"

#include "apFrustrumChooser.h"
#include "apStringEncodingChooser.h"

const utString vlnVLNFILEFACTORY("vlnFile_factory");

vlnVlnFileFactory::~vlnVlnFileFactory() = default;

vlnFile vlnVlnFileFactory::create(const utString& path) const {
  return {path, encoding_, file_operations_};
}

vlnFileFactory::vlnFileFactory(const apIStringEncoding* encoding, const apIFileOperations* file_operations)
    : vlnVlnFileFactory(encoding ? encoding : apStringEncodingChooser().ut_encoding(),
                        file_operations ? file_operations : apFrustrumChooser().file_operations()) {}

vlnFileFactory::~vlnFileFactory() = default;

vlnFile vlnFileFactory::file(utString path) const {
  return create(path);
}
