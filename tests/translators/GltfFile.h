#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "TemporaryDirectory.h"
#include "Translator.h"

// The translators of glTF, and files for them that tests put together.

using Json = nlohmann::json;

inline const Translator reader("gltfreader");
inline const Translator text_writer("gltfwriter");
inline const Translator binary_writer("glbwriter");

template <typename T>
std::string bytes_of(const std::vector<T>& numbers) {
  return {reinterpret_cast<const char*>(numbers.data()), numbers.size() * sizeof(T)};
}

inline std::string glb(const Json& json, std::string binary, std::uint32_t version = 2) {
  std::string text = json.dump();
  text.resize((text.size() + 3) / 4 * 4, ' ');
  binary.resize((binary.size() + 3) / 4 * 4);
  auto chunk = [](const char* kind, const std::string& bytes) {
    return bytes_of<std::uint32_t>({static_cast<std::uint32_t>(bytes.size())}) + std::string(kind, 4) + bytes;
  };
  const std::string chunks = chunk("JSON", text) + chunk("BIN", binary);
  return "glTF" + bytes_of<std::uint32_t>({version, static_cast<std::uint32_t>(12 + chunks.size())}) + chunks;
}

// A file of one triangle in a node, to which accessors can be added.
struct File {
  std::string binary;
  Json json = Json::parse(R"({"asset":{"version":"2.0"},"scenes":[{"nodes":[0]}],"nodes":[{"mesh":0}],
    "meshes":[{"primitives":[{"attributes":{"POSITION":0},"indices":1}]}],"buffers":[{}]})");

  File() {
    add<float>("VEC3", 5126, {0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0});
    add<std::uint16_t>("SCALAR", 5123, {0, 1, 2});
  }

  template <typename T>
  std::size_t add(const char* type, int component_type, const std::vector<T>& numbers,
                  const Json& more = Json::object()) {
    const std::size_t size = std::string(type) == "SCALAR" ? 1 : static_cast<std::size_t>(type[3] - '0');
    binary.resize((binary.size() + 3) / 4 * 4);
    const std::string bytes = bytes_of(numbers);
    json["bufferViews"].push_back({{"buffer", 0}, {"byteOffset", binary.size()}, {"byteLength", bytes.size()}});
    Json accessor{{"bufferView", json["bufferViews"].size() - 1},
                  {"componentType", component_type},
                  {"count", numbers.size() / size},
                  {"type", type}};
    accessor.update(more);
    json["accessors"].push_back(accessor);
    binary += bytes;
    json["buffers"][0]["byteLength"] = binary.size();
    return json["accessors"].size() - 1;
  }

  Json& primitive() { return json["meshes"][0]["primitives"][0]; }
  std::string glb() const { return ::glb(json, binary); }
};

inline Reading must_read(const std::string& content,
                         std::pair<const char*, const char*> option = {"WELD_POINTS", "0"}) {
  TemporaryDirectory directory;
  return reader.must_read(directory.write("a.glb", content), {{"WELD_POINTS", "0"}, option});
}

inline void must_not_read(const std::string& content, const std::string& reason) {
  TemporaryDirectory directory;
  reader.must_not_read(directory.write("a.glb", content), reason);
}

using Corners = std::vector<std::uint32_t>;
