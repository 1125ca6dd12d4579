#include "exaBrepGeometry.h"

#include <Geom_BSplineCurve.hxx>

namespace {

// Maximum nesting of trimmed and offset curves and surfaces.
constexpr int deepest = 100;

// The number of coordinates of a point or direction.
enum Space : std::size_t { PLANE = 2, SPACE = 3 };

// The count of numbers after a choice from 1 to 5: an origin, axes and radii.
constexpr std::size_t surface_reals[] = {12, 13, 14, 13, 14};
struct Curves {
  Space space;
  std::size_t reals[5];
  std::size_t offset_reals;  // of an offset curve: its distance and, in 3D, a direction
};
constexpr Curves plane_curves{PLANE, {4, 7, 8, 7, 8}, 1};
constexpr Curves space_curves{SPACE, {6, 13, 14, 13, 14}, 1 + SPACE};

std::size_t degree_of(exaBrepValues& values) {
  const std::int64_t degree = values.degree();
  if (degree >= 1 && degree <= Geom_BSplineCurve::MaxDegree()) return static_cast<std::size_t>(degree);
  values.fail("it cannot have the degree " + std::to_string(degree));
  return 0;
}

// Reads the knots and their multiplicities, and checks that these match the number of poles.
void walk_knots(exaBrepValues& values, std::size_t knots, std::size_t poles, std::size_t degree, bool periodic) {
  std::int64_t sum = periodic ? 0 : -static_cast<std::int64_t>(degree) - 1;
  for (std::size_t i = 0; i < knots && values.ok(); ++i) {
    values.reals(1);
    const std::int64_t times = values.integer();
    // The first and last knot of a periodic curve are the same.
    if (!periodic || i > 0) sum += times;
  }
  if (values.ok() && sum != static_cast<std::int64_t>(poles)) {
    values.fail("its knots are for " + std::to_string(sum) + " poles, but it has " + std::to_string(poles));
  }
}

void walk_bezier(exaBrepValues& values, Space space) {
  const bool rational = values.flag();
  const std::size_t degree = degree_of(values);
  values.reals((degree + 1) * (space + (rational ? 1 : 0)));
}

void walk_bspline(exaBrepValues& values, Space space) {
  const bool rational = values.flag(), periodic = values.flag();
  const std::size_t degree = degree_of(values), width = space + (rational ? 1 : 0);
  const std::size_t poles = values.count("poles", 2, 0, width);
  const std::size_t knots = values.count("knots", 2, 1, 1);
  values.reals(poles * width);
  walk_knots(values, knots, poles, degree, periodic);
}

void walk_bezier_surface(exaBrepValues& values) {
  const bool u_rational = values.flag(), v_rational = values.flag();
  const std::size_t u_degree = degree_of(values), v_degree = degree_of(values);
  values.reals((u_degree + 1) * (v_degree + 1) * (SPACE + (u_rational || v_rational ? 1 : 0)));
}

void walk_bspline_surface(exaBrepValues& values) {
  const bool u_rational = values.flag(), v_rational = values.flag();
  const bool u_periodic = values.flag(), v_periodic = values.flag();
  const std::size_t u_degree = degree_of(values), v_degree = degree_of(values);
  const std::size_t width = SPACE + (u_rational || v_rational ? 1 : 0);
  const std::size_t u_poles = values.count("rows of poles", 2, 0, width);
  const std::size_t v_poles = values.count("columns of poles", 2, 0, width);
  const std::size_t u_knots = values.count("knots", 2, 1, 1), v_knots = values.count("knots", 2, 1, 1);
  const std::size_t poles = values.checked(static_cast<std::int64_t>(u_poles * v_poles), "poles", 4, 0, width);
  values.reals(poles * width);
  walk_knots(values, u_knots, u_poles, u_degree, u_periodic);
  walk_knots(values, v_knots, v_poles, v_degree, v_periodic);
}

bool may_be_inside(exaBrepValues& values, int inside) {
  if (inside > deepest) values.fail("more than " + std::to_string(deepest) + " are based on each other");
  return values.ok();
}

void fail_choice(exaBrepValues& values, int choice, const char* what) {
  values.fail(std::to_string(choice) + " is no kind of " + what);
}

void walk_curve(exaBrepValues& values, const Curves& curves, int inside) {
  if (!may_be_inside(values, inside)) return;
  const int choice = values.choice();
  switch (choice) {
    case 1:
    case 2:
    case 3:
    case 4:
    case 5:
      return values.reals(curves.reals[choice - 1]);
    case 6:
      return walk_bezier(values, curves.space);
    case 7:
      return walk_bspline(values, curves.space);
    case 8:
      values.reals(2);
      return walk_curve(values, curves, inside + 1);
    case 9:
      values.reals(curves.offset_reals);
      return walk_curve(values, curves, inside + 1);
    default:
      fail_choice(values, choice, "curve");
  }
}

}  // namespace

void exa_walk_curve2d(exaBrepValues& values) {
  walk_curve(values, plane_curves, 0);
}

void exa_walk_curve(exaBrepValues& values, int inside) {
  walk_curve(values, space_curves, inside);
}

void exa_walk_surface(exaBrepValues& values, int inside) {
  if (!may_be_inside(values, inside)) return;
  const int choice = values.choice();
  switch (choice) {
    case 1:
    case 2:
    case 3:
    case 4:
    case 5:
      return values.reals(surface_reals[choice - 1]);
    case 6:
      values.reals(SPACE);
      return exa_walk_curve(values, inside + 1);
    case 7:
      values.reals(2 * SPACE);
      return exa_walk_curve(values, inside + 1);
    case 8:
      return walk_bezier_surface(values);
    case 9:
      return walk_bspline_surface(values);
    case 10:
      values.reals(4);
      return exa_walk_surface(values, inside + 1);
    case 11:
      values.reals(1);
      return exa_walk_surface(values, inside + 1);
    default:
      fail_choice(values, choice, "surface");
  }
}
