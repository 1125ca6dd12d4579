#pragma once

#include "apExport.h"
#include "coSet.h"
#include "utString.h"
#include "velabsTranslatorCategory.h"

// The version of this interface. A library built for another version is rejected.
inline constexpr int velabs_interface = 1;

// The description that every translator gives. Texts belong to the library and are valid as long as it is loaded.
class VELPLATFORM_API velabsLibBase {
 public:
  virtual int interface_number() const { return velabs_interface; }
  virtual const char* library_version() const = 0;
  // One human-readable sentence.
  virtual const char* description() const = 0;

  // A further text and number that the suite stores with the description and does not interpret.
  virtual const char* further_text() const { return ""; }
  virtual int further_number() const { return 0; }

  // The `vluFileType` numbers that an input translator reads.
  virtual void file_types(intcoSet& types) const = 0;
  // Without dots; the one marked with a leading "*" is the default.
  virtual void extensions(utStringcoSet& extensions) const = 0;
  // The entry in a file dialog: "STL Files (*.stl)|*.stl". Null for a translator without files.
  virtual const char* filter() const = 0;
  virtual const char* format_name() const = 0;
  virtual velabsTranslatorCategorycoPrf translator_category() const = 0;
  virtual ~velabsLibBase();
};
