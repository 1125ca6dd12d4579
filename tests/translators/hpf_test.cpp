#include <gtest/gtest.h>

#include <cstring>
#include <functional>

#include "Solids.h"
#include "TemporaryDirectory.h"
#include "Translator.h"
#include "annStoredShape.h"
#include "hpfLayout.h"

namespace {

const Translator reader("hpfreader");
const Translator writer("hpfwriter");

std::shared_ptr<annMesh> triangle() {
  return mesh_of({{0, -0.0, 1e-300}, {1, 0, 0}, {0, 1, 1e300}}, {{0, 1, 2}});
}

// A shape that makes facets, as one does whose library is there.
class Shape : public annExactShape {
 public:
  std::shared_ptr<const annMesh> facets(const annTolerance& tolerance, apStatus&, annProgress*) const override {
    auto mesh = triangle();
    mesh->vertices->points[0].x = tolerance.chord;
    return mesh;
  }
  annShapeContent content() const override { return {2, 7}; }
  std::optional<annBox> box(const annTransform& placement) const override {
    return annBox{placement.point({0, 0, 0}), placement.point({1, 2, 3})};
  }
  utString kind() const override { return "brep"; }
  annTolerance least_tolerance() const override { return {1e-3, 0}; }
  std::string save(apStatus&) const override { return std::string("bytes\0\xFF of a shape", 18); }
};

// Everything that a document can hold, and everything that can be shared is.
annDocument whole_document() {
  annDocument document;
  document.unit = velLENGTH_INCH;
  document.root.name = "root";
  auto mesh = triangle();
  mesh->vertices->points.push_back({7, 8, 9});
  mesh->vertices->normals = {{0, 0, 1}, {0, 1, 0}, {1, 0, 0}, {0, 0, -1}};
  mesh->vertices->colours = {{0, 0, 0, 1}, {1, 1, 1, 0.5F}, {0.1F, 0.2F, 0.3F, 0.4F}, {}};
  mesh->add_face(std::array<std::uint32_t, 4>{0, 1, 2, 3});
  mesh->materials = {{"red", {1, 0, 0, 1}}, {{}, {0, 1, 0, 1}}, {"", {0, 0, 1, 0}}};
  mesh->set_face_material(1, 2);
  auto other = std::make_shared<annMesh>();
  other->vertices = mesh->vertices;
  other->corners = {3, 2, 1};
  const auto shape = std::make_shared<Shape>();

  annNode& assembly = document.root.add_child("an assembly\n\xFF");
  assembly.transform.m = {-1, 0, 0, 5, 0, 0.5, 0, 0, 0, 0, 1, -0.0};
  assembly.colour = annColour{0.25F, 0.5F, 0.75F, 1};
  assembly.add_child("first").body.mesh = mesh;
  assembly.add_child("").body.mesh = other;
  assembly.add_child({}).body.shape = shape;
  annNode& again = document.root.add_child("again");
  again.body = {mesh, shape};
  again.add_child("below a body").body.shape = shape;
  document.root.add_child("nothing");
  return document;
}

// The same with all that takes version 1.1.
annDocument newer_document() {
  annDocument document = whole_document();
  annNode& assembly = *document.root.children[0];
  const auto hard = std::make_shared<annMesh>(*assembly.children[1]->body.mesh);
  hard->vertices->normal_pool = {{0, 0, 1}, {0, 0.6, 0.8}};
  hard->corner_normals = {1, annMesh::no_normal, 0};
  assembly.children[1]->body.mesh = hard;
  assembly.instance_name = "an assembly, 2";
  document.root.children[2]->instance_name = "";
  document.up = annUP_Z;
  return document;
}

std::string file_of(const TemporaryDirectory& directory, const annDocument& document, Options options = {}) {
  writer.must_write(document, directory / "a.hpf", options);
  return TemporaryDirectory::read(directory / "a.hpf");
}

// A file that gives the same bytes when it is read and written again keeps all that was written; the checksum below
// pins what that is in version 1.0.
TEST(Hpf, KeepsEverythingAndWhatIsShared) {
  TemporaryDirectory directory;
  const std::string bytes = file_of(directory, newer_document(), {{"CHORD_TOLERANCE", "0.25"}});
  const Reading reading = reader.must_read(directory / "a.hpf");
  EXPECT_EQ(reading.messages.notes_and_warnings(), "");
  EXPECT_EQ(file_of(directory, reading.document), bytes);

  const annNode& assembly = reading.node(0);
  const annMesh& hard = *assembly.children[1]->body.mesh;
  EXPECT_EQ(reading.node(1).body.mesh, assembly.children[0]->body.mesh);
  EXPECT_EQ(reading.node(1).body.mesh->vertices, hard.vertices);
  EXPECT_EQ(hard.vertices->normal_pool, (std::vector<annVector>{{0, 0, 1}, {0, 0.6, 0.8}}));
  EXPECT_EQ(hard.corner_normals, (std::vector<std::uint32_t>{1, annMesh::no_normal, 0}));
  EXPECT_EQ(assembly.instance_name, "an assembly, 2");
  EXPECT_TRUE(reading.node(1).instance_name.is_null() && !reading.node(2).instance_name.is_null());
  EXPECT_EQ(reading.document.up, annUP_Z);

  // The shape comes as its bytes, its facets as the mesh beside it.
  const annBody& body = assembly.children[2]->body;
  ASSERT_TRUE(body.shape && body.mesh);
  EXPECT_EQ(body.mesh->vertices->points[0].x, 0.25);
  EXPECT_EQ(reading.node(1).body.shape, body.shape);
  apStatus status;
  EXPECT_EQ(body.shape->save(status), Shape().save(status));
  EXPECT_EQ(body.shape->content().faces, 7u);
  EXPECT_TRUE(status.ok());
  EXPECT_FALSE(body.shape->facets({}, status));
  EXPECT_NE(status.failure().find("\"brep\" is installed"), utString::npos);
}

TEST(Hpf, WritesVersion1_0WhereThatHoldsEverything) {
  TemporaryDirectory directory;
  const std::string older = file_of(directory, whole_document(), {{"CHORD_TOLERANCE", "0.25"}});
  EXPECT_EQ(older[12], 0);
  // The sum of what was written before there was a version 1.1.
  EXPECT_EQ(hpfChecksum::of(older), (hpfSum{0xEC6C9AB12D05F79C, 0xE1466C884FDE6E2A}));

  // Readers of 1.0 pass over what is not critical, and find the rest as it was.
  const std::string newer = file_of(directory, newer_document());
  EXPECT_EQ(newer[12], 1);
  for (std::size_t place = 64; place < newer.size();) {
    hpfChunkHead head;
    std::memcpy(&head, newer.data() + place, sizeof head);
    const bool is_older = older.find(std::string_view(head.name.data(), 4)) != older.npos;
    EXPECT_EQ(head.flags, is_older ? hpf_critical : 0U) << std::string(head.name.data(), 4);
    place += sizeof head + head.length;
  }
}

TEST(Hpf, BoxesOfStoredShapesAreExactOrUnknown) {
  const annStoredShape shape("k", "", {}, annBox{{0, 0, 0}, {1, 2, 3}});
  annTransform turned;
  turned.m = {0, -2, 0, 10, 1, 0, 0, 0, 0, 0, 1, 0};
  ASSERT_TRUE(shape.box(turned));
  EXPECT_EQ(shape.box(turned)->min, (annVector{6, 0, 0}));
  EXPECT_EQ(shape.box(turned)->max, (annVector{10, 1, 3}));
  turned.m[0] = 0.1;
  EXPECT_FALSE(shape.box(turned));
  EXPECT_FALSE(annStoredShape("k", "", {}, std::nullopt).box({}));
}

TEST(Hpf, KeepsShapesWithoutFacetsAndSaysSo) {
  TemporaryDirectory directory;
  const std::string bytes = file_of(directory, whole_document(), {{"WRITE_FACETS", "0"}});
  const Reading reading = reader.read(directory / "a.hpf");
  EXPECT_FALSE(reading.node(0).children[2]->body.mesh);
  const Messages messages = writer.must_write(reading.document, directory / "b.hpf");
  EXPECT_NE(messages.notes.find("one shape kept without facets"), std::string::npos) << messages.notes;
  EXPECT_EQ(TemporaryDirectory::read(directory / "b.hpf"), bytes);

  const Messages other = writer.must_write(whole_document(), directory / "b.hpf", {{"CHORD_TOLERANCE", "1e-9"}});
  EXPECT_NE(other.warnings.find("CHORD_TOLERANCE is smaller"), std::string::npos) << other.warnings;
  EXPECT_EQ(other.notes, "");
}

TEST(Hpf, TellsEveryDamage) {
  TemporaryDirectory directory;
  const std::string bytes = file_of(directory, newer_document());
  const std::string file = directory / "a.hpf";
  auto is_told = [&] {
    const Reading reading = reader.read(file);
    return reading.result == velabsFAILED && !reading.fault();
  };
  // In place: making thousands of files takes longer than reading them.
  std::fstream stream(file, std::ios::binary | std::ios::in | std::ios::out);
  for (std::size_t place = 0; place < bytes.size(); ++place) {
    for (int pattern : {0x01, 0x80, 0xFF, 0}) {
      stream.seekp(static_cast<std::streamoff>(place)).put(static_cast<char>(bytes[place] ^ pattern)).flush();
      ASSERT_EQ(pattern != 0, is_told()) << place << " " << pattern;
    }
  }
  for (std::size_t more : {4096, 64, 8, 1}) {
    std::filesystem::resize_file(file, bytes.size() + more);
    EXPECT_TRUE(is_told()) << more;
  }
  for (std::size_t size = bytes.size(); size-- > 0;) {
    std::filesystem::resize_file(file, size);
    ASSERT_TRUE(is_told()) << size;
  }
}

template <typename Record>
void change(std::string& bytes, std::size_t place, const std::function<void(Record&)>& how) {
  Record record;
  std::memcpy(&record, bytes.data() + place, sizeof record);
  how(record);
  std::memcpy(bytes.data() + place, &record, sizeof record);
}

// Gives a file the places, lengths and sums that belong to it, as a hostile writer would.
std::string sealed(std::string bytes) {
  hpfSum before = hpfChecksum().value();
  for (std::size_t place = 64; place < bytes.size();) {
    std::uint64_t length = 0;
    change<hpfChunkHead>(bytes, place, [&](hpfChunkHead& head) {
      head.place = place;
      head.before = before;
      head.sum = hpf_sum_of_head(head);
      length = std::min<std::uint64_t>(head.length, bytes.size() - place - 64) / 64 * 64;
    });
    before = hpfChecksum::of(std::string_view(bytes).substr(place + 64, length));
    place += 64 + length;
  }
  change<hpfFileHead>(bytes, 0, [&](hpfFileHead& head) {
    head.length = bytes.size();
    head.sum = hpf_sum_of_head(head);
  });
  return bytes;
}

std::size_t place_of(const std::string& bytes, const std::array<char, 4>& name) {
  return bytes.find(std::string_view(name.data(), 4), 1) + 64;
}

struct Forgery {
  const char* what;
  std::function<void(std::string&)> change;
  const char* message;  // of the error; "note: ..." when the file can be read all the same
};

template <typename Record>
Forgery forged(const char* what, const std::array<char, 4>& chunk, std::size_t offset, const char* message,
               const std::function<void(Record&)>& how) {
  return {what, [=](std::string& b) { change<Record>(b, place_of(b, chunk) + offset, how); }, message};
}

Forgery inserted(const char* what, const std::array<char, 4>& name, std::uint32_t flags, const char* message) {
  return {what,
          [=](std::string& bytes) {
            const hpfChunkHead head{name, flags, 64, 0, 0, {}, {}};
            std::string chunk(128, '\0');
            std::memcpy(chunk.data(), &head, sizeof head);
            bytes.insert(64, chunk);
            change<hpfFileHead>(bytes, 0, [](hpfFileHead& file) { file.minor = 3; });
          },
          message};
}

// Puts a copy of a chunk before another one.
Forgery copied(const char* what, const std::array<char, 4>& chunk, const std::array<char, 4>& before,
               const char* message) {
  return {what,
          [=](std::string& bytes) {
            const std::size_t place = place_of(bytes, chunk) - 64;
            hpfChunkHead head;
            std::memcpy(&head, bytes.data() + place, sizeof head);
            bytes.insert(place_of(bytes, before) - 64, bytes.substr(place, 64 + head.length));
          },
          message};
}

TEST(Hpf, ChecksWhatHasTheRightSums) {
  TemporaryDirectory directory;
  constexpr auto huge = std::uint64_t{1} << 61;
  constexpr auto vert = hpf_vertices_chunk, mesh = hpf_mesh_chunk, shap = hpf_shape_chunk, tree = hpf_tree_chunk;
  constexpr auto pool = hpf_pool_chunk, hard = hpf_corner_normals_chunk, names = hpf_instance_names_chunk;
  constexpr auto up = hpf_up_chunk;
  using V = hpfVerticesHead;
  using M = hpfMeshHead;
  using N = hpfNode;
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  const Forgery forgeries[] = {
      {"another major", [](auto& b) { b[8] = 2; }, "of HPF version 2.1, this program reads version 1.1"},
      {"newer minor", [](auto& b) { b[12] = 9; }, "note: "},
      inserted("unknown chunk", {'N', 'E', 'W', '1'}, 0, "note: HPF 1.3: what its chunk \"NEW1\" holds is left out"),
      inserted("unknown critical chunk", {'N', 'E', 'W', '1'}, 1, "chunk \"NEW1\": this program does not know it"),
      inserted("end before the end", hpf_end_chunk, 1, "does not fit into the file"),
      {"no end", [](auto& b) { b.resize(b.size() - 64); }, "without its last chunk"},
      {"bytes behind", [](auto& b) { b += std::string(b.substr(b.size() - 64)); }, "behind the end"},
      {"long chunk", [](auto& b) { change<hpfChunkHead>(b, 64, [](auto& h) { h.length = huge; }); }, "does not fit"},
      {"no tree", [=](auto& b) { b.erase(place_of(b, tree) - 64, b.size() - place_of(b, tree)); }, "no tree of parts"},
      copied("second tree", tree, up, "there is a second one"),
      forged<V>("many points", vert, 0, "more points", [](V& h) { h.points = h.normals = h.colours = huge; }),
      forged<V>("too many points", vert, 0, "too short", [](V& h) { h.points = h.normals = h.colours = 1000; }),
      forged<V>("few normals", vert, 0, "not every vertex has a normal", [](V& h) { h.normals = 3; }),
      forged<V>("few colours", vert, 0, "not every vertex has a colour", [](V& h) { h.colours = 1; }),
      forged<double>("point that is none", vert, 64 + 88, "a point is not of finite", [](double& d) { d = nan; }),
      forged<float>("colour that is none", vert, 320, "a vertex colour is not", [](float& f) { f = nan; }),
      forged<M>("no such vertices", mesh, 0, "names vertices 1, of which there are 1", [](M& h) { h.vertices = 1; }),
      forged<M>("many corners", mesh, 0, "more corners", [](M& h) { h.corners = huge; }),
      forged<M>("no faces", mesh, 0, "do not fit its corners", [](M& h) { h.face_starts = 0; }),
      forged<M>("fewer materials of faces", mesh, 0, "not every face has", [](M& h) { h.face_materials = 1; }),
      forged<M>("fewer materials", mesh, 0, "names a material that is not there", [](M& h) { h.materials = 2; }),
      forged<M>("short names", mesh, 0, "a name is longer", [](M& h) { h.name_bytes = 2; }),
      forged<M>("long names", mesh, 0, "text behind its names", [](M& h) { h.name_bytes = 4; }),
      forged<std::uint32_t>("no such vertex", mesh, 64, "a vertex that is not there", [](auto& n) { n = 4; }),
      forged<std::uint32_t>("far vertex", mesh, 64, "a vertex that is not there", [](auto& n) { n = 0x80000003; }),
      forged<std::uint32_t>("two corners", mesh, 132, "do not fit its corners", [](auto& n) { n = 5; }),
      forged<std::uint32_t>("starts late", mesh, 128, "do not fit its corners", [](auto& n) { n = 1; }),
      forged<hpfShapeHead>("long kind", shap, 0, "too short", [](auto& h) { h.kind_length = ~std::uint64_t{0}; }),
      forged<hpfShapeHead>("box that is none", shap, 0, "its box is not", [](auto& h) { h.box[2] = nan; }),
      forged<hpfTreeHead>("unit", tree, 0, "length unit 12 is not known", [](auto& h) { h.unit = 12; }),
      forged<N>("root with parent", tree, 64, "node 0 does not stand behind its parent", [](N& n) { n.parent = 0; }),
      forged<N>("circle", tree, 64 + 136, "node 1 does not stand behind its parent", [](N& n) { n.parent = 1; }),
      forged<N>("no such mesh", tree, 64, "a node names mesh 3, of which there are 3", [](N& n) { n.mesh = 3; }),
      forged<N>("placement that is none", tree, 64, "a placement is not", [](N& n) { n.transform[5] = nan; }),
      forged<N>("node's colour that is none", tree, 64 + 136, "colour of a node", [](N& n) { n.colour[3] = nan; }),
      forged<N>("long name", tree, 64, "a name is longer", [](N& n) { n.name_length = huge; }),
      copied("pool before its vertices", pool, vert, "names vertices 0, of which there are 0"),
      copied("second pool", pool, mesh, "a second one for the same vertices"),
      copied("normals before their mesh", hard, mesh, "names mesh 1, of which there are 0"),
      copied("second normals", hard, tree, "a second one for the same mesh"),
      copied("names before the nodes", names, tree, "names node 1, of which there are 0"),
      copied("second names", names, up, "node 1 has two names of an instance"),
      copied("second up axis", up, names, "there is a second up axis"),
      forged<hpfPoolHead>("many normals", pool, 0, "more normals than", [](auto& h) { h.normals = huge; }),
      forged<hpfCornerNormalsHead>("few corners", hard, 0, "not every corner has", [](auto& h) { h.corners = 2; }),
      forged<std::uint32_t>("no such normal", hard, 64 + 8, "names a normal that is not", [](auto& n) { n = 2; }),
      forged<hpfInstanceNamesHead>("few names", names, 0, "text behind its names", [](auto& h) { h.records = 0; }),
      forged<hpfInstanceNamesHead>("few bytes", names, 0, "a name is longer", [](auto& h) { h.name_bytes = 3; }),
      forged<hpfUpHead>("no axis", up, 0, "up axis 0 is not known", [](auto& h) { h.axis = 0; }),
      forged<hpfUpHead>("another axis", up, 0, "up axis 3 is not known", [](auto& h) { h.axis = 3; })};

  const std::string bytes = file_of(directory, newer_document());
  ASSERT_EQ(sealed(bytes), bytes);
  for (const Forgery& forgery : forgeries) {
    std::string file = bytes;
    forgery.change(file);
    const Reading reading = reader.read(directory.write("f.hpf", sealed(file)));
    const bool is_read = std::string(forgery.message).starts_with("note: ");
    const std::string& said = is_read ? reading.messages.notes : reading.messages.errors;
    EXPECT_FALSE(reading.fault()) << forgery.what;
    EXPECT_EQ(reading.result, is_read ? velabsDONE : velabsFAILED) << forgery.what;
    EXPECT_NE(said.find(forgery.message + (is_read ? 6 : 0)), said.npos) << forgery.what << ": " << said;
  }
}

TEST(Hpf, GivesNormalsTheLengthOne) {
  TemporaryDirectory directory;
  std::string file = file_of(directory, newer_document());
  constexpr std::size_t first_normal = 64 + 128;  // arrays begin at multiples of 64 bytes
  change<double>(file, place_of(file, hpf_vertices_chunk) + first_normal, [](double& x) { x = 9e200; });
  const Reading reading = reader.must_read(directory.write("f.hpf", sealed(file)));
  EXPECT_EQ(reading.node(1).body.mesh->vertices->normals[0].x, 1);
}

TEST(Hpf, ChecksumIsTheDocumentedOne) {
  std::string counting(128, '\0');
  for (std::size_t i = 0; i < counting.size(); ++i) counting[i] = static_cast<char>(i);
  const struct {
    std::string bytes;
    hpfSum sum;
  } vectors[] = {{"", {0x8F8BF89C9CB58D12, 0x8E31BBD0621E0991}},
                 {std::string(64, '\0'), {0xF602B35DB9A360C5, 0x214B36270CCA25B1}},
                 {counting, {0x636456C3547F1BAF, 0x3A972F2E2D923DD4}}};
  for (const auto& [bytes, sum] : vectors) EXPECT_EQ(hpfChecksum::of(bytes), sum) << bytes.size();
}

}  // namespace
