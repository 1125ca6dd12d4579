#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <iomanip>
#include <sstream>
#include <thread>

#include "vlnCharBuffer.h"
#include "vlnHtmlRequest.h"
#include "vlnOstream.h"
#include "vlnOstreamDisplayer.h"

namespace {

// A stream to which something is done, and what it wrote.
std::string written(const std::function<void(vlnOstream&)>& work) {
  std::ostringstream text;
  vlnOstream stream(nullptr);
  stream.add_ostream(&text);
  work(stream);
  return text.str();
}

void dots(vlnOstream& stream, int count) {
  for (int i = 0; i < count; ++i) stream.print_dot();
}

struct CountingFlushes : std::stringbuf {
  int sync() override { return ++flushes, 0; }
  int flushes = 0;
};

struct Pieces : vlnCharBuffer {
  using vlnCharBuffer::vlnCharBuffer;
  void write_out() override {
    EXPECT_EQ(text()[length()], '\0');
    pieces.emplace_back(text());
  }
  std::vector<std::string> pieces;
};

struct OpenRequest : vlnHtmlRequest {
  using vlnHtmlRequest::uncode;
};

}  // namespace

TEST(Ostream, ProgressBreaksItsRows) {
  const std::string row(77, '.');
  const std::pair<std::function<void(vlnOstream&)>, std::string> cases[] = {
      {[](vlnOstream& s) { dots(s, 76); }, row.substr(1)},
      {[](vlnOstream& s) { dots(s, 77); }, row + "\n"},
      {[](vlnOstream& s) { dots(s, 78); }, row + "\n."},
      {[](vlnOstream& s) { dots(s, 77), s.print("x"); }, row + "\nx"},
      {[](vlnOstream& s) { dots(s, 3), s.print("x"), dots(s, 77); }, "...\nx" + row + "\n"},
      {[](vlnOstream& s) { dots(s, 3), s.print(""), s.print(nullptr); }, "...\n"},
      {[](vlnOstream& s) { s.print_percent(0), s.print_percent(7), s.print_percent(100); }, "%00%%07%%100%"},
      {[](vlnOstream& s) { s.print_percent(-5), s.print_percent(9999); }, "%00%%100%"},
      // Of 75 characters and 4 more the 4 stand on a new row.
      {[](vlnOstream& s) { dots(s, 75), s.print_percent(50), dots(s, 73); },
       row.substr(2) + "\n%50%" + row.substr(4) + "\n"},
      // A row that a percentage fills is full without a line break.
      {[](vlnOstream& s) { dots(s, 73), s.print_percent(50), s.print("x"); }, row.substr(4) + "%50%x"},
      {[](vlnOstream& s) { dots(s, 73), s.print_percent(100); }, row.substr(4) + "\n%100%"}};
  for (const auto& [work, text] : cases) EXPECT_EQ(written(work), text);
}

TEST(Ostream, EveryStreamGetsEverythingFromThenOn) {
  std::ostringstream first, second;
  vlnOstream stream(nullptr);
  stream.print("to nobody");
  stream.add_ostream(nullptr);
  stream.add_ostream(&first);
  stream.print_dot();
  stream.add_ostream(&second);
  vlnOstreamDisplayer displayer(&stream);
  velnlsDisplayer& interface = displayer;
  interface.display("é 100%\n");
  EXPECT_EQ(first.str(), ".\né 100%\n");
  EXPECT_EQ(second.str(), "\né 100%\n");
}

TEST(Ostream, AWidthThatIsSetForTheStreamDoesNotPad) {
  std::ostringstream text;
  vlnOstream stream(nullptr);
  stream.add_ostream(&text);
  text << std::setw(8) << std::setfill('#');
  stream.print("x");
  stream.print_dot();
  stream.print_percent(5);
  text << 7;
  EXPECT_EQ(text.str(), "x.%05%#######7");
  vlnOstreamDisplayer(nullptr).display("x");
}

TEST(Ostream, FlushesOnlyWhenAsked) {
  CountingFlushes buffer;
  std::ostream text(&buffer);
  vlnOstream stream(nullptr);
  stream.add_ostream(&text);
  const auto print_all = [&] { stream.print("x"), stream.print_dot(), stream.print_percent(1); };
  print_all();
  EXPECT_EQ(buffer.flushes, 0);
  EXPECT_EQ(stream.auto_flush(1), 0);
  print_all();
  EXPECT_EQ(buffer.flushes, 3);
  EXPECT_EQ(stream.auto_flush(0), 1);
}

TEST(OstreamThreads, LinesAndDotsNeverMix) {
  constexpr int threads = 4, lines = 500;
  std::ostringstream first, second;
  vlnOstream stream(apISynchOperations::system());
  stream.add_ostream(&first);
  {
    std::vector<std::jthread> workers;
    for (char letter = 'a'; letter < 'a' + threads; ++letter) {
      workers.emplace_back([&stream, letter] {
        for (int i = 0; i < lines; ++i) {
          stream.print((std::string(40, letter) + "\n").c_str());
          stream.print_dot();
          stream.print_percent(i % 100);
        }
      });
    }
    workers.emplace_back([&] { stream.add_ostream(&second); });
  }
  std::istringstream text(first.str());
  std::size_t progress = 0, whole = 0;
  for (std::string line; std::getline(text, line);) {
    EXPECT_LE(line.size(), 77u);
    const bool is_progress = line.find_first_not_of(".%0123456789") == line.npos;
    (is_progress ? progress : whole) += is_progress ? line.size() : 1;
    EXPECT_TRUE(is_progress || line == std::string(40, line[0])) << line;
  }
  EXPECT_EQ(whole, std::size_t{threads * lines});
  EXPECT_EQ(progress, threads * lines * std::size_t{5});
  EXPECT_TRUE(first.str().ends_with(second.str()));
}

TEST(CharBuffer, HandsOnWhatExceedsItsLimit) {
  Pieces buffer(4);
  for (const char* text : {"ab", "", static_cast<const char*>(nullptr)}) buffer.add(text);
  EXPECT_TRUE(buffer.pieces.empty());
  for (const char* text : {"cd", "abc", "longer than that"}) buffer.add(text);
  buffer.flush();
  EXPECT_EQ(buffer.pieces, (std::vector<std::string>{"abcd", "abclonger than that", ""}));

  for (const int limit : {0, -7}) {
    Pieces eager(limit);
    eager.add("x");
    EXPECT_EQ(eager.pieces, std::vector<std::string>{"x"});
  }
}

TEST(HtmlRequest, FieldsAreEncodedAndFound) {
  vlnHtmlRequest request;
  EXPECT_EQ(request.get_field("a"), "");
  request.add_field("alpha", "one");
  request.add_field("a b", "x&y=~");
  request.add_field("b", "\xc3\xa9");
  request.add_field("b", "");
  EXPECT_EQ(request.buffer(), "alpha=one&a%20b=x%26y%3d%7e&b=%c3%a9&b=&");
  EXPECT_EQ(vlnHtmlRequest(request).get_field("a%20b"), "x%26y%3d%7e");

  const std::array<const char*, 3> cases[] = {
      {"a=1&be=2&", "be", "2"},   {"a=1&be=2", "be", "2"},  {"alpha=1&", "c", ""},
      {"a=%41&", "a", "%41"},     {"a=1&a=2&", "a", "1"},   {"A=1&a=2&", "a", "2"},
      {"a=x=y&b=z&", "a", "x=y"}, {"a=x=y&b=z&", "b", "z"}, {"a\nb&c=d&", "c", "d"},
      {"=x&", "", "x"},           {"a", "a", ""},           {"ab=1&", "a", ""}};
  for (const auto& [buffer, name, value] : cases) EXPECT_EQ(vlnHtmlRequest(buffer).get_field(name), value) << buffer;
}

TEST(HtmlRequest, DecodingCopiesWhatIsNotEncoded) {
  const std::pair<const char*, const char*> cases[] = {{"x%26y+z", "x&y z"}, {"%4A%4a", "JJ"}, {"%", "%"},
                                                       {"50%", "50%"},       {"%4", "%4"},     {"%zz%2", "%zz%2"},
                                                       {"%%41", "%A"}};
  for (const auto& [coded, plain] : cases) EXPECT_EQ(OpenRequest::uncode(coded), plain) << coded;
  std::string bytes;
  for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
  vlnHtmlRequest request;
  request.add_field("all", bytes);
  EXPECT_EQ(OpenRequest::uncode(request.get_field("all")), utString(bytes));
}
