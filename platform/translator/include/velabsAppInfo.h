#pragma once

#include <memory>

#include "apExport.h"
#include "apIStringEncoding.h"
#include "utString.h"

// Information that an application gives to the suite about itself, and the directories that the suite gives to the
// application.
class VELPLATFORM_API velabsAppInfo {
 public:
  // The encoding is "UTF-8", "ISO-8859-1" or "ASCII"; anything else gives the default.
  velabsAppInfo(utString product, utString version, utString application, utString user, const utString& encoding);

  const utString& product() const { return product_; }
  const utString& version() const { return version_; }
  const utString& application() const { return application_; }
  const utString& user() const { return user_; }

  // Exists until the process ends.
  const apIStringEncoding* ut_encoding() const { return encoding_; }

  // Lists of directories separated by ";"; each call replaces the previous list.
  void schema_dir(const utString& directories) { schema_dir_ = directories; }
  void installation_dir(const utString& directories) { installation_dir_ = directories; }
  void user_dir(const utString& directory) { user_dir_ = directory; }
  void fabrin_server_dir(const utString& directory) { fabrin_server_dir_ = directory; }
  const utString& schema_dir() const { return schema_dir_; }
  const utString& installation_dir() const { return installation_dir_; }
  const utString& user_dir() const { return user_dir_; }
  const utString& fabrin_server_dir() const { return fabrin_server_dir_; }

  // The paths of a named schema sub-directory in the installation: each installation directory, "/" and the name,
  // joined by ";".
  utString schema_path(const utString& name) const;

 private:
  utString product_, version_, application_, user_;
  const apIStringEncoding* encoding_;
  utString schema_dir_, installation_dir_, user_dir_, fabrin_server_dir_;
};
