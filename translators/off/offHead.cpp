#include "offHead.h"

#include "annMesh.h"
#include "vltInput.h"
#include "vltNames.h"

namespace {

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

bool take(std::string_view& text, std::string_view front) {
  if (!text.starts_with(front)) return false;
  text.remove_prefix(front.size());
  return true;
}

}  // namespace

bool offHead::read(vltNumberLines& lines, std::size_t size, velabsOutput& output) {
  if (!lines.next_line()) {
    output.message(velabsERROR, "the file holds nothing but blank lines and comments");
    return false;
  }
  if (!read_keyword(lines, output) || !read_counts(lines, output)) return false;

  constexpr std::size_t least_vertex = 6, least_face = 2;  // "0 0 0" and "0" with their line ends
  const std::size_t room = size - lines.offset() + 1;      // the last line needs no line end
  const bool fit = vertices <= room / least_vertex && faces <= (room - vertices * least_vertex) / least_face;
  if (!fit) {
    return vlt_fail_at_line(output, lines.line(),
                            std::to_string(vertices) + " vertices and " + std::to_string(faces) +
                                " faces need more bytes than the file has");
  }
  if (vertices < annMesh::no_material) return true;
  return vlt_fail_at_line(output, lines.line(), "more vertices than a mesh can number");
}

bool offHead::read_keyword(vltNumberLines& lines, velabsOutput& output) {
  std::string_view text = lines.rest();
  const std::size_t before = text.size();
  if (is_digit(text.front()) && !text.starts_with("4OFF") && !text.starts_with("4n")) return true;
  textures = take(text, "ST");
  // Some writers put the letter for normals before that for colours.
  normals = take(text, "N");
  colours = take(text, "C");
  normals = take(text, "N") || normals;
  const bool four = take(text, "4");
  const bool any = take(text, "n");
  if (!take(text, "OFF") || !(text.empty() || is_digit(text.front()) ||
                              static_cast<unsigned char>(text.front()) <= ' ' || text.front() == '#')) {
    return vlt_fail_at_line(output, lines.line(),
                            "the keyword \"OFF\" is expected, " + vlt_quoted(lines.take_word()) + " stands there");
  }
  if (four || any) {
    return vlt_fail_at_line(
        output, lines.line(),
        std::string(any ? "nOFF" : "4OFF") + ": points of other than three coordinates are not read");
  }
  lines.skip(before - text.size());
  if (!lines.at_line_end() && lines.rest().starts_with("BINARY")) {
    return vlt_fail_at_line(output, lines.line(), "the binary form of OFF is not read; save the model as OFF text");
  }
  return true;
}

bool offHead::read_counts(vltNumberLines& lines, velabsOutput& output) {
  std::size_t* const counts[] = {&vertices, &faces};
  for (std::size_t* count : counts) {
    if (lines.at_line_end() && !lines.next_line()) {
      return vlt_fail_at_line(output, lines.line(), "the file ends before its counts of vertices and faces");
    }
    long long number = 0;
    if (!lines.take(number) || number < 0) {
      return vlt_fail_at_line(output, lines.line(), "the counts of vertices and faces are expected");
    }
    *count = static_cast<std::size_t>(number);
  }
  double edges = 0;
  lines.take(edges);
  if (lines.at_line_end()) return true;
  return vlt_fail_at_line(output, lines.line(),
                          vlt_quoted(lines.take_word()) + " stands behind the counts of vertices, faces and edges");
}
