#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "threemfMeshBuilder.h"
#include "threemfModel.h"
#include "threemfProperties.h"
#include "threemfReading.h"
#include "threemfXml.h"

// Parses one model part. The start part defines the unit, and only it may refer to other parts.
class threemfModelParser : public threemfXml {
 public:
  threemfModelParser(threemfReading& reading, bool is_start, velabsOutput& output);
  ~threemfModelParser() override;

  threemfModelPart take() { return std::move(part_); }

 protected:
  void start(const char* name, const char** attributes) override;
  void end() override;
  void name_space(std::string_view prefix, std::string_view uri) override;

 private:
  enum Place { OUTSIDE, MODEL, RESOURCES, MATERIALS, COLOURS, OBJECT, MESH, VERTICES, TRIANGLES, COMPONENTS, BUILD };

  bool start_vertex(const char** attributes);
  bool start_triangle(const char** attributes);
  void start_below(const char* name, const char** attributes);
  bool start_resource(std::string_view name, const char** attributes);
  void start_model(const char** attributes);
  void start_object(const char** attributes);
  void start_look(const char** attributes, const char* colour_name);
  bool start_use(const char** attributes, std::string_view element, threemfItem& item);
  void enter(Place place) { places_.push_back(place); }
  bool start_group(const char** attributes, bool colours, bool left_out);

  bool read_looks(std::uint32_t group, const std::uint32_t* indices, std::size_t count,
                  threemfMeshBuilder::Looks& looks);
  bool check_extensions(std::string_view prefixes);
  bool check_extension(const std::string& uri);
  bool number(std::string_view attribute, const char* text, std::uint32_t& value);
  void bad_value(std::string_view attribute, std::string_view text);
  void unknown_attribute(std::string_view element, std::string_view attribute);
  void finish_object();
  void found(velabsSeverity severity, const std::string& what);

  threemfReading& reading_;
  bool is_start_;
  double factor_ = 1;
  threemfModelPart part_;
  std::unordered_map<std::string, std::string> prefixes_;
  std::vector<Place> places_{OUTSIDE};
  std::size_t skipped_ = 0;  // depth inside a skipped element
  threemfProperties properties_;
  threemfMeshBuilder builder_;
  std::uint32_t id_ = 0;
  threemfObject object_;
  std::uint32_t object_look_ = threemfProperties::no_look;
  std::uint32_t object_group_ = 0;  // 0: none
};
