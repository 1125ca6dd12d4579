#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "exaExport.h"

// Reads the values of a BREP stream in order, in text or binary form. The first missing or invalid value sets an error
// with its position. After an error, all numbers are 0 and all lists are at their end.
class exaBrepValues {
 public:
  explicit exaBrepValues(std::string_view bytes) : bytes_(bytes) {}
  virtual ~exaBrepValues() = default;

  bool ok() const { return fault_.empty(); }
  bool at_end() const { return at_ >= bytes_.size(); }
  const std::string& fault() const { return fault_; }
  void fail(const std::string& why);

  // Sets what is read next, for error texts: "3D curve", number 5.
  void reading(const char* what, std::size_t number = 0) { what_ = what, number_ = number; }

  std::string_view line();
  // Reads the header of a section: its name and the number of items, each at least `least` bytes long.
  std::size_t section(std::string_view name, std::size_t least);

  virtual std::int64_t integer() = 0;
  virtual std::int64_t degree() = 0;
  virtual int choice() = 0;  // the kind of the next item
  virtual bool flag() = 0;
  virtual void reals(std::size_t count) = 0;
  virtual void floats(std::size_t count) = 0;

  // Reads a count of items, which is at least `least`; each item has this many integers and reals. 0 and an error when
  // the remaining bytes are too few for them.
  std::size_t count(const char* what, std::size_t least, std::size_t integers, std::size_t reals);
  // The same for a count that was read before.
  std::size_t checked(std::int64_t count, const char* what, std::size_t least, std::size_t integers, std::size_t reals);
  // Reads a reference from `first` to `last` to an item that was read before.
  std::size_t reference(const char* what, std::size_t first, std::size_t last);

  // Parts of shapes that the two forms store differently.
  virtual void polygon_mark() = 0;  // after the nodes of a polygon on a triangulation
  virtual int shape_kind() = 0;     // a TopAbs_ShapeEnum value; -1 with an error
  virtual int point_choice() = 0;   // reads its parameter too, which is stored before or after it
  virtual void continuity() = 0;
  virtual std::size_t face_facets(std::size_t last) = 0;  // number of a triangulation, 0 for none
  virtual void shape_flags() = 0;
  virtual bool sub_shape(std::int64_t& number) = 0;  // false at the end of the list

 protected:
  std::size_t left() const { return bytes_.size() - at_; }
  std::string_view word();

  std::string_view bytes_;
  std::size_t at_ = 0;

 private:
  virtual std::string place() const = 0;
  virtual std::size_t room(std::size_t integers, std::size_t reals) const = 0;
  virtual void end_head() = 0;

  const char* what_ = "head";
  std::size_t number_ = 0;
  std::string fault_;
};

// Text form: words separated by blanks.
class exaBrepText final : public exaBrepValues {
 public:
  using exaBrepValues::exaBrepValues;
  std::int64_t integer() override;
  std::int64_t degree() override { return integer(); }
  int choice() override;
  bool flag() override { return integer() != 0; }
  void reals(std::size_t count) override;
  void floats(std::size_t count) override { reals(count); }
  void polygon_mark() override { word(); }
  int shape_kind() override;
  int point_choice() override;
  void continuity() override { word(); }
  std::size_t face_facets(std::size_t last) override;
  void shape_flags() override { word(); }
  bool sub_shape(std::int64_t& number) override;

 private:
  std::string place() const override;
  // Each takes at least a digit and a blank.
  std::size_t room(std::size_t integers, std::size_t reals) const override { return 2 * (integers + reals); }
  void end_head() override {}
};

// Binary form: numbers of fixed width, little-endian. Section headers are text.
class exaBrepBinary final : public exaBrepValues {
 public:
  using exaBrepValues::exaBrepValues;
  // Up to version 2 the parameter of a point may be stored before its kind.
  void set_version(int version) { version_ = version; }

  std::int64_t integer() override;
  std::int64_t degree() override;
  int choice() override { return byte(); }
  bool flag() override { return byte() != 0; }
  void reals(std::size_t count) override { skip(count, sizeof(double)); }
  void floats(std::size_t count) override { skip(count, sizeof(float)); }
  void polygon_mark() override {}
  int shape_kind() override;
  int point_choice() override;
  void continuity() override { byte(); }
  std::size_t face_facets(std::size_t last) override;
  void shape_flags() override { skip(7, 1); }
  bool sub_shape(std::int64_t& number) override;

 private:
  std::string place() const override;
  std::size_t room(std::size_t integers, std::size_t reals) const override { return 4 * integers + 8 * reals; }
  void end_head() override { skip(1, 1); }
  bool needs(std::size_t bytes);
  void skip(std::size_t count, std::size_t bytes);
  int byte();

  int version_ = 4;
};
