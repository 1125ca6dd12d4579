#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "threemfArchive.h"
#include "velabsResult.h"
#include "vltProgress.h"

struct XML_ParserStruct;

// Parses a part of the package as XML, element by element, without keeping all of it in memory. Derived classes
// interpret the elements. Names of elements and attributes have the form "URI|local", or just the name if they have no
// namespace. Only UTF-8 and UTF-16 are supported. A document type declaration is an error, so entities cannot expand.
class threemfXml {
 public:
  explicit threemfXml(velabsOutput& output) : output_(output) {}
  virtual ~threemfXml();
  threemfXml(const threemfXml&) = delete;
  threemfXml& operator=(const threemfXml&) = delete;

  // Call once for each object. An error is reported with part and line. `progress`, which may be null, receives the
  // number of bytes read, added to `done`.
  velabsResult parse(threemfArchive& archive, const std::string& key, vltProgress* progress, std::size_t& done);

 protected:
  // Attributes are pairs of name and value; a null pointer follows the last.
  virtual void start(const char* name, const char** attributes) = 0;
  virtual void end() = 0;
  // Called before the element that declares the namespace; the prefix is empty for the default namespace.
  virtual void name_space(std::string_view /*prefix*/, std::string_view /*uri*/) {}

  std::size_t line() const;
  // Reports the first error and stops the parser.
  void fail(std::string_view reason);
  bool failed() const { return failed_; }

 private:
  struct Handlers;

  bool feed(threemfPartBytes& bytes, bool& more);
  bool told_of_broken_text();

  velabsOutput& output_;
  XML_ParserStruct* parser_ = nullptr;
  std::string part_;
  std::size_t depth_ = 0;
  std::size_t fed_ = 0;
  bool failed_ = false;
};
