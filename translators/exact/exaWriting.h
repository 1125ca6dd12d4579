#pragma once

#include <functional>
#include <optional>

#include "exaExport.h"
#include "exaProducts.h"
#include "velLengthUnit.h"
#include "velTableInstance.h"
#include "velabsOfStream.h"
#include "velabsResult.h"

// What the writers of exact shapes do alike.

// The unit that a file shall name: LENGTH_UNIT, else the document's, else millimetres.
VELEXACT_API velLengthUnit exa_written_unit(const velTableInstance& resources, const annDocument& document);

// Writes products to a stream; false when that failed, which was said.
using exaWriteFile = std::function<bool(const std::vector<exaProduct>& products,
                                        const std::vector<exaProduct::Use>& top, velabsOfStream& stream)>;

// Calls `write` for everything, or, as MULTIPLE_FILES may ask, once for each part, as it is in itself: the first one
// goes to the target, the others to files beside it that have the part's name before the extension.
VELEXACT_API bool exa_write_files(const exaProducts& products, const velTableInstance& resources,
                                  velabsOfStream& stream, velabsOutput& output, const exaWriteFile& write);

// Says what meshes and nodes have that formats of exact shapes do not hold. Without colours there is nothing to say of
// their names.
VELEXACT_API void exa_tell_losses(const annDocument& document, const char* format, bool holds_colours,
                                  velabsOutput& output);

// The faces of all products, each once.
VELEXACT_API std::size_t exa_face_count(const std::vector<exaProduct>& products);

// The kernel leaves out without a word what it cannot write. Says how many faces of these are missing among those that
// it made; false, and an error that ends in `reason`, when all are.
VELEXACT_API bool exa_tell_missing(std::size_t faces, std::size_t written, const char* format,
                                   const std::string& reason, velabsOutput& output);

// The time that a file names, the same for every run unless SOURCE_DATE_EPOCH gives one; in UTC, spelled as `strftime`
// does.
VELEXACT_API std::string exa_time_stamp(const char* format);

// The last component of a file's name without its extension.
VELEXACT_API utString exa_stem(const utString& file);
