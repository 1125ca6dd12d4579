#pragma once

#include "apExport.h"
#include "coSet.h"
#include "utString.h"
#include "velabsTranslatorCategory.h"

// The number of this interface. A library built for another one is refused.
inline constexpr int velabs_interface = 1;

// What every translator says of itself. Texts belong to the library and live as long as it does.
class VELPLATFORM_API velabsLibBase {
 public:
  virtual int interface_number() const { return velabs_interface; }
  virtual const char* library_version() const = 0;
  // One sentence for people.
  virtual const char* description() const = 0;

  // A further text and number of the library's own, kept with its description and handed back unread.
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
