#include "velLoader.h"

#include <utility>

#include "apFrustrumChooser.h"

velLoader::velLoader(std::shared_ptr<vlnIAppDirMap> directories)
    : vlnDLLLoader(apILibraryLoaderOperations::system(), apFrustrumChooser().file_operations()),
      directories_(std::move(directories)) {}
