#pragma once

#include "coPageArr.h"
#include "utString.h"
#include "velTableInstance.h"

// One input of a request: the file, the values of its resources, and the library that reads it. The table is not owned
// and must outlive this object.
class v2vTranslatorElements {
 public:
  v2vTranslatorElements() = default;
  v2vTranslatorElements(utString file, const velTableInstance* resources, utString library, int is_viewer,
                        utString format)
      : file_(std::move(file)),
        resources_(resources),
        library_(std::move(library)),
        is_viewer_(is_viewer),
        format_(std::move(format)) {}

  // Nonzero if no library is set.
  int invalid() const { return library_.empty() ? 1 : 0; }

  const utString& file() const { return file_; }
  const velTableInstance* resources() const { return resources_; }
  const utString& library() const { return library_; }
  int is_viewer() const { return is_viewer_; }
  const utString& format() const { return format_; }

 private:
  utString file_;
  const velTableInstance* resources_ = nullptr;
  utString library_;
  int is_viewer_ = 0;
  utString format_;
};

using v2vTranslatorElementscoPageArr = coPageArr<v2vTranslatorElements>;
