#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "apExport.h"
#include "coResource.h"
#include "utString.h"
#include "velResourceFile.h"

// The resource values of one use: those that were set here, behind them those of the parent, behind them the defaults
// of the process's table. Copies are independent but share their parent, which must outlive them.
class VELPLATFORM_API velTableInstance {
 public:
  explicit velTableInstance(const velTableInstance* parent = nullptr) : parent_(parent) {}

  // Starts afresh with the values of a resource file. A missing file leaves the defaults; a line that is broken, has an
  // unknown key or a value that its type does not know costs that line and is told by `problems()`.
  void initialise(const utString& path);

  // The same with a file that was read already; `path` is for the problems.
  void initialise(const utString& path, const velResourceFile& file);

  // Nonzero when the value was taken; 0 when the key is not known or the value is none of its type. A number follows
  // the locale that is in force for this thread.
  int add_resource(const utString& key, const utString& text);

  // The resource behind a key, null when nobody knows it.
  const coResourceBase* find(const utString& key) const;

  // The value behind a key, or `none` when the key is not known or of another type.
  template <typename T>
  T value(const utString& key, T none = T{}) const {
    auto* resource = dynamic_cast<const coResource<T>*>(find(key));
    return resource ? resource->value() : none;
  }

  // The keys set here, in the order in which they were set first.
  const std::vector<utString>& keys() const { return keys_; }

  // What `initialise` passed over: "FILE, line N: reason".
  const std::vector<utString>& problems() const { return problems_; }

 private:
  const velTableInstance* parent_;
  std::unordered_map<utString, std::shared_ptr<const coResourceBase>> values_;
  std::vector<utString> keys_;
  std::vector<utString> problems_;
};
