#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "apExport.h"
#include "coResource.h"
#include "utString.h"
#include "velResourceFile.h"

// The resource values of one request. A value is looked up first here, then in the parent, then in the defaults of the
// process's table. Copies are independent but share their parent, which must outlive them.
class VELPLATFORM_API velTableInstance {
 public:
  explicit velTableInstance(const velTableInstance* parent = nullptr) : parent_(parent) {}

  // Replaces all values by those of a resource file. A missing file leaves the defaults. A line is skipped and listed
  // in `problems()` if it is malformed, has an unknown key or has a value that is not valid for its type.
  void initialise(const utString& path);

  // The same with a file that is already parsed; `path` is used in the problems.
  void initialise(const utString& path, const velResourceFile& file);

  // Nonzero if the value was stored; 0 if the key is unknown or the value is not valid for its type. Numbers use this
  // thread's locale.
  int add_resource(const utString& key, const utString& text);

  // The resource of a key; null if the key is unknown.
  const coResourceBase* find(const utString& key) const;

  // The value of a key, or `none` if the key is unknown or has another type.
  template <typename T>
  T value(const utString& key, T none = T{}) const {
    auto* resource = dynamic_cast<const coResource<T>*>(find(key));
    return resource ? resource->value() : none;
  }

  // The keys set here, in the order in which they were first set.
  const std::vector<utString>& keys() const { return keys_; }

  // The lines that `initialise` skipped: "FILE, line N: reason".
  const std::vector<utString>& problems() const { return problems_; }

 private:
  const velTableInstance* parent_;
  std::unordered_map<utString, std::shared_ptr<const coResourceBase>> values_;
  std::vector<utString> keys_;
  std::vector<utString> problems_;
};
