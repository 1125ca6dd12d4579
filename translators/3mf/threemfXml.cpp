#include "threemfXml.h"

#include <expat.h>

#include "vltWords.h"

namespace {

constexpr int block_size = 1 << 18;
// The maximum length of a tag or comment; the parser parses it again with each block.
constexpr std::size_t longest_token = std::size_t{1} << 20;
constexpr std::size_t deepest = 256;

threemfXml& xml(void* data) {
  return *static_cast<threemfXml*>(data);
}

}  // namespace

// The callbacks of the parser. It continues for a while after it was stopped.
struct threemfXml::Handlers {
  static void start(void* data, const XML_Char* name, const XML_Char** attributes) {
    threemfXml& self = xml(data);
    if (self.failed_) return;
    if (++self.depth_ > deepest) {
      self.fail("elements stand more than " + std::to_string(deepest) + " deep in each other");
    } else {
      self.start(name, attributes);
    }
  }

  static void end(void* data, const XML_Char*) {
    threemfXml& self = xml(data);
    if (self.failed_) return;
    --self.depth_;
    self.end();
  }

  static void name_space(void* data, const XML_Char* prefix, const XML_Char* uri) {
    if (!xml(data).failed_) xml(data).name_space(prefix ? prefix : "", uri ? uri : "");
  }

  static void doctype(void* data, const XML_Char*, const XML_Char*, const XML_Char*, int) {
    xml(data).fail("the part has a document type declaration, which 3MF forbids");
  }

  static void declaration(void* data, const XML_Char*, const XML_Char* encoding, int) {
    if (encoding && !vlt_same_word(encoding, "utf-8") && !vlt_same_word(encoding, "utf-16")) {
      xml(data).fail("the text is not encoded in UTF-8 or UTF-16, which are all that 3MF allows");
    }
  }
};

threemfXml::~threemfXml() {
  if (parser_) XML_ParserFree(parser_);
}

velabsResult threemfXml::parse(threemfArchive& archive, const std::string& key, vltProgress* progress,
                               std::size_t& done) {
  part_ = archive.shown(key);
  const std::unique_ptr<threemfPartBytes> bytes = archive.part(key);
  if (!bytes) return velabsFAILED;
  parser_ = XML_ParserCreateNS(nullptr, '|');
  XML_SetUserData(parser_, this);
  XML_SetElementHandler(parser_, Handlers::start, Handlers::end);
  XML_SetStartNamespaceDeclHandler(parser_, Handlers::name_space);
  XML_SetStartDoctypeDeclHandler(parser_, Handlers::doctype);
  XML_SetXmlDeclHandler(parser_, Handlers::declaration);
  const std::size_t before = done;
  for (bool more = true; more;) {
    if (!feed(*bytes, more)) return velabsFAILED;
    done = before + fed_;
    if (progress && !progress->reached(done)) return velabsCANCELLED;
  }
  return velabsDONE;
}

bool threemfXml::feed(threemfPartBytes& bytes, bool& more) {
  void* const room = XML_GetBuffer(parser_, block_size);
  if (!room) {
    fail("there is not enough memory");
    return false;
  }
  const std::int64_t count = bytes.read(static_cast<char*>(room), block_size);
  if (count < 0) return false;
  more = count > 0;
  fed_ += static_cast<std::size_t>(count);
  const XML_Status status = XML_ParseBuffer(parser_, static_cast<int>(count), !more);
  if (failed_) return false;
  if (status != XML_STATUS_OK) return told_of_broken_text();
  const XML_Index at = XML_GetCurrentByteIndex(parser_);
  if (more && at >= 0 && fed_ - static_cast<std::size_t>(at) > longest_token) {
    fail("a tag or comment is longer than a megabyte");
  }
  return !failed_;
}

bool threemfXml::told_of_broken_text() {
  const XML_Error error = XML_GetErrorCode(parser_);
  if (error == XML_ERROR_UNKNOWN_ENCODING || error == XML_ERROR_INCORRECT_ENCODING) {
    fail("the text is not encoded in UTF-8 or UTF-16, which are all that 3MF allows");
  } else {
    fail(std::string("the text is no well-formed XML: ") + XML_ErrorString(error));
  }
  return false;
}

std::size_t threemfXml::line() const {
  return XML_GetCurrentLineNumber(parser_);
}

void threemfXml::fail(std::string_view reason) {
  if (failed_) return;
  failed_ = true;
  output_.message(velabsERROR,
                  utString("part " + part_ + ", line " + std::to_string(line()) + ": " + std::string(reason)));
  XML_StopParser(parser_, XML_FALSE);
}
