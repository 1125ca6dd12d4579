#include "v2vTranslatorLibrary.h"

#include <utility>

v2vTranslatorLibrary::v2vTranslatorLibrary(std::unique_ptr<apDynamicLibrary> library, velabsReadWrapper read,
                                           velabsWriteWrapper write)
    : library_(std::move(library)), read_(read), write_(write) {
  library_->set_lifetime(apILibraryLoaderOperations::Lifetime::keep_mapped);
}
