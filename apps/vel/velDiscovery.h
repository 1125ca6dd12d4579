#pragma once

#include <memory>
#include <string>
#include <vector>

#include "apStringCompareInsensitive.h"
#include "v2vTranslatorLoader.h"
#include "velInstallation.h"
#include "vlnFindFileByExtension.h"
#include "vlnSecureTranslatorInfoFactory.h"
#include "vlnTranslatorDlls.h"
#include "vlnTranslatorDllsFactory.h"
#include "vlnTranslatorSearchPath.h"

// Inspects the translator libraries and the cache of their descriptions. It provides what the loader does not: which
// libraries failed and why, and the state of the cache. The installation must outlive it, and it must outlive the sets
// that it makes.
class velDiscovery {
 public:
  struct Failure {
    std::string library;  // full path
    std::string reason;
  };
  struct Sets {
    std::unique_ptr<vlnTranslatorDlls> inputs;
    std::unique_ptr<vlnTranslatorDlls> outputs;
  };
  // One record of the cache: the library name at its start, and its description, null when the record is unusable.
  struct Record {
    std::string library;
    std::unique_ptr<vlnSecureTranslatorInfo> info;
  };

  explicit velDiscovery(velInstallation& installation);
  velDiscovery(const velDiscovery&) = delete;
  velDiscovery& operator=(const velDiscovery&) = delete;

  // The search path for libraries. Several directories are separated by ";".
  std::string library_directory() const;

  // Opens every library and describes it, without the cache.
  Sets describe_all() const;

  // The libraries on the search path that are in neither set, in the order of the search path. Opens each one again to
  // find the reason.
  std::vector<Failure> failures(const vlnTranslatorDlls& inputs, const vlnTranslatorDlls& outputs) const;

  // Why the library of a description cannot be opened; empty when it can.
  std::string failure_to_load(const vlnTranslatorInfo& info) const;

  // The records of a cache file in their order. `intact` is false when it is damaged.
  std::vector<Record> read_cache(const std::string& cache_file, bool& intact) const;

  Sets empty_sets() const;

 private:
  std::string reason(const apPathName& library, const vlnTranslatorLoadStatus& status) const;

  velInstallation& installation_;
  const apIStringEncoding* encoding_;
  apStringCompareInsensitive compare_;
  vlnFindFileByExtension lister_;
  v2vTranslatorLoader libraries_;
  vlnTranslatorSearchPath search_path_;
  vlnSecureTranslatorInfoFactory descriptions_;
  vlnTranslatorDllsFactory sets_;
};
