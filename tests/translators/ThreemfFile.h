#pragma once

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "ReadingCase.h"
#include "TemporaryDirectory.h"
#include "Translator.h"

// The translators of 3MF, and files for them that tests put together.

inline const Translator reader("3mfreader");
inline const Translator writer("3mfwriter");

using Parts = std::vector<std::pair<std::string, std::string>>;

// Packs parts as they are given, two of one name among them; gives the name of the file.
std::string pack(const TemporaryDirectory& directory, const Parts& parts, bool encrypt = false);

// The content of a part of a file.
std::string unpack(const std::string& file, const char* part);

inline std::string relationships(std::initializer_list<const char*> targets, const char* kind = "2013/01/3dmodel") {
  std::string text = "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">";
  for (const char* target : targets) {
    text += std::string("<Relationship Id=\"r\" Target=\"") + target +
            "\" Type=\"http://schemas.microsoft.com/3dmanufacturing/" + kind + "\"/>";
  }
  return text + "</Relationships>";
}

inline const std::pair<std::string, std::string> start{"_rels/.rels", relationships({"/3D/3dmodel.model"})};

inline std::string model(const std::string& resources, const std::string& build, const std::string& attributes = "") {
  return "<c:model xmlns:c=\"http://schemas.microsoft.com/3dmanufacturing/core/2015/02\"\n"
         " xmlns:m=\"http://schemas.microsoft.com/3dmanufacturing/material/2015/02\"\n"
         " xmlns:b=\"http://schemas.microsoft.com/3dmanufacturing/beamlattice/2017/02\"\n"
         " xmlns:p=\"http://schemas.microsoft.com/3dmanufacturing/production/2015/06\" " +
         attributes + ">\n<c:resources>\n" + resources + "</c:resources>\n<c:build>\n" + build +
         "</c:build>\n</c:model>\n";
}

inline const std::string four =
    "<c:vertices><c:vertex x=\"0\" y=\"0\" z=\"0\"/><c:vertex x=\"1\" y=\"0\" z=\"0\"/>"
    "<c:vertex x=\"0\" y=\"1\" z=\"0\"/><c:vertex x=\"0\" y=\"0\" z=\"1\"/></c:vertices>";
inline const std::string faces = "<c:triangle v1=\"0\" v2=\"1\" v3=\"2\"/><c:triangle v1=\"0\" v2=\"3\" v3=\"1\"/>";

inline std::string mesh(const std::string& id, const std::string& more = "", const std::string& triangles = faces) {
  return "<c:object id=\"" + id + "\" " + more + "><c:mesh>" + four + "<c:triangles>" + triangles +
         "</c:triangles></c:mesh></c:object>\n";
}

inline std::string assembly(const std::string& id, const std::string& components, const std::string& more = "") {
  return "<c:object id=\"" + id + "\" " + more + "><c:components>" + components + "</c:components></c:object>\n";
}

inline std::string use(const std::string& id, const std::string& more = "") {
  return "<c:component objectid=\"" + id + "\" " + more + "/>";
}
inline std::string item(const std::string& id, const std::string& more = "") {
  return "<c:item objectid=\"" + id + "\" " + more + "/>\n";
}

// Names, "=" and that of the instance where it has one, "*" for a body, the translation where there is one, children in
// brackets.
inline std::string outline(const annNode& node) {
  std::string result;
  for (const auto& child : node.children) {
    const auto& m = child->transform.m;
    result += (result.empty() ? "" : " ") + child->name.str() +
              (child->instance_name.empty() ? "" : "=" + child->instance_name.str()) + (child->body.mesh ? "*" : "");
    if (m[3] != 0 || m[7] != 0 || m[11] != 0) {
      for (std::size_t i : {3, 7, 11}) result += "," + std::to_string(static_cast<int>(m[i]));
    }
    if (!child->children.empty()) result += "(" + outline(*child) + ")";
  }
  return result;
}

using Case = ReadingCase<Parts>;

inline void check(const Case& c, const TemporaryDirectory& directory) {
  check_reading(c, reader.read(pack(directory, c.content)),
                [](const annDocument& document) { return outline(document.root); });
}

inline Parts only(const std::string& text) {
  return {start, {"3D/3dmodel.model", text}};
}

inline const std::string move = "transform=\"0 1 0 -1 0 0 0 0 1 5 6 7\"";
