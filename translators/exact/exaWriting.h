#pragma once

#include <functional>
#include <optional>

#include "exaExport.h"
#include "exaProducts.h"
#include "velLengthUnit.h"
#include "velTableInstance.h"
#include "velabsOfStream.h"
#include "velabsResult.h"

// Functions shared by the writers of exact shapes.

// The unit to declare in a file: LENGTH_UNIT, else the document's, else millimetres.
VELEXACT_API velLengthUnit exa_written_unit(const velTableInstance& resources, const annDocument& document);

// Writes products to a stream; false when that failed, with a message.
using exaWriteFile = std::function<bool(const std::vector<exaProduct>& products,
                                        const std::vector<exaProduct::Use>& top, velabsOfStream& stream)>;

// Calls `write` once for everything or, if MULTIPLE_FILES asks for it, once for each part in its own coordinates. The
// first part goes to the target, the others to files beside it with the part's name before the extension.
VELEXACT_API bool exa_write_files(const exaProducts& products, const velTableInstance& resources,
                                  velabsOfStream& stream, velabsOutput& output, const exaWriteFile& write);

// Reports the attributes of meshes and nodes that formats of exact shapes do not store. Without colours, material
// names are not reported.
VELEXACT_API void exa_tell_losses(const annDocument& document, const char* format, bool holds_colours,
                                  velabsOutput& output);

// The number of faces of all products, each counted once.
VELEXACT_API std::size_t exa_face_count(const std::vector<exaProduct>& products);

// The kernel skips what it cannot write without an error. Reports how many of `faces` are missing in the output.
// False, with an error that ends in `reason`, when all are.
VELEXACT_API bool exa_tell_missing(std::size_t faces, std::size_t written, const char* format,
                                   const std::string& reason, velabsOutput& output);

// The time stamp for a file, in UTC, formatted by `strftime`. It is constant unless SOURCE_DATE_EPOCH is set.
VELEXACT_API std::string exa_time_stamp(const char* format);

// The last component of a file path without its extension.
VELEXACT_API utString exa_stem(const utString& file);
