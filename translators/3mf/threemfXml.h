#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "threemfArchive.h"
#include "velabsResult.h"
#include "vltProgress.h"

struct XML_ParserStruct;

// Reads a part of the package as XML, element after element, without ever holding the whole of it. Derived classes say
// what the elements mean. Names of elements and attributes arrive as "URI|local", those without a namespace as they
// are. UTF-8 and UTF-16 are the only encodings, and a document type declaration ends the reading, so that no entity can
// expand.
class threemfXml {
 public:
  explicit threemfXml(velabsOutput& output) : output_(output) {}
  virtual ~threemfXml();
  threemfXml(const threemfXml&) = delete;
  threemfXml& operator=(const threemfXml&) = delete;

  // Once for each object. A failure is told with part and line. `progress`, when there is one, hears of the bytes read,
  // counted on from `done`.
  velabsResult parse(threemfArchive& archive, const std::string& key, vltProgress* progress, std::size_t& done);

 protected:
  // Attributes are pairs of name and value with a null pointer behind the last.
  virtual void start(const char* name, const char** attributes) = 0;
  virtual void end() = 0;
  // Comes before the element that makes it; the prefix is empty for the default namespace.
  virtual void name_space(std::string_view /*prefix*/, std::string_view /*uri*/) {}

  std::size_t line() const;
  // Tells the first failure and ends the reading.
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
