#include "vltFacets.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <exception>
#include <mutex>
#include <numbers>
#include <string>
#include <thread>
#include <vector>

#include "apNumberText.h"

namespace {

constexpr double degrees = 180 / std::numbers::pi;

// The progress of all shapes together, in hundredths of a shape. It is the first half of the total; writing is the
// rest.
class Total {
 public:
  Total(std::size_t shapes, velabsOutput& output) : shapes_(shapes), output_(output) {}
  void add(std::size_t hundredths) { output_.progress(static_cast<int>((sum_ += hundredths) / (2 * shapes_))); }
  bool cancelled() const { return output_.cancelled(); }

 private:
  std::size_t shapes_;
  velabsOutput& output_;
  std::atomic<std::size_t> sum_{0};
};

// The progress of one shape.
class Share final : public annProgress {
 public:
  explicit Share(Total& total) : total_(total) {}
  void done(double share) override {
    const auto now = static_cast<std::size_t>(100 * std::clamp(share, 0.0, 1.0));
    std::size_t before = told_;
    while (now > before && !told_.compare_exchange_weak(before, now)) {
    }
    if (now > before) total_.add(now - before);
  }
  bool cancelled() const override { return total_.cancelled(); }

 private:
  Total& total_;
  std::atomic<std::size_t> told_{0};
};

}  // namespace

vltFacets::vltFacets(const annDocument& document, const velTableInstance& resources, velabsOutput& output)
    : document_(document),
      tolerance_{std::max(resources.value<double>("CHORD_TOLERANCE", 0), 0.0),
                 std::max(resources.value<double>("ANGLE_TOLERANCE", 0), 0.0) / degrees},
      output_(output) {}

std::shared_ptr<const annMesh> vltFacets::of(const annNode& node) {
  if (node.body.mesh) return node.body.mesh;
  if (made_.empty()) make_all();
  Facets& facets = made_[node.body.shape.get()];
  if (facets.told || facets.status.ok() || output_.cancelled()) return facets.mesh;
  facets.told = true;
  const utString what = facets.mesh ? "not all facets for the shape of \"" : "no facets for the shape of \"";
  output_.message(facets.mesh ? velabsWARNING : velabsERROR, what + node.label() + "\": " + facets.status.failure());
  return facets.mesh;
}

void vltFacets::tell_least(const annTolerance& least) {
  char number[ap_number_room];
  auto warn = [&](const char* key, double value, const char* unit) {
    const std::string text(number, ap_write_number(number, static_cast<float>(value)));
    output_.message(velabsWARNING, utString(std::string(key) +
                                            " is smaller than facets can sensibly follow: it is "
                                            "raised to " +
                                            text + unit));
  };
  if (least.chord > 0) warn("CHORD_TOLERANCE", least.chord, ", a smaller one for smaller shapes");
  if (least.angle > 0) warn("ANGLE_TOLERANCE", least.angle * degrees, " degrees");
}

void vltFacets::make_all() {
  std::vector<std::pair<const annExactShape*, Facets*>> shapes;
  for (const annPlacedBody& placed : ann_placed_bodies(document_)) {
    const annBody& body = placed.node->body;
    if (body.mesh) continue;
    const auto [known, is_new] = made_.try_emplace(body.shape.get());
    if (is_new) shapes.emplace_back(known->first, &known->second);
    known->second.enlargement = std::max(known->second.enlargement, placed.placement.largest_scale());
  }

  Total total(shapes.size(), output_);
  std::atomic<std::size_t> next{0};
  std::mutex lock;
  annTolerance raised;
  auto work = [&] {
    for (std::size_t i; (i = next.fetch_add(1)) < shapes.size() && !output_.cancelled();) {
      auto& [shape, facets] = shapes[i];
      Share share(total);
      try {
        const annTolerance least = shape->least_tolerance();
        const double factor = facets->enlargement > 0 ? facets->enlargement : 1;
        const annTolerance own{tolerance_.chord / factor, tolerance_.angle};
        {
          std::lock_guard guard(lock);
          if (own.chord > 0 && own.chord < least.chord) raised.chord = std::max(raised.chord, least.chord * factor);
          if (tolerance_.angle > 0 && tolerance_.angle < least.angle)
            raised.angle = std::max(raised.angle, least.angle);
        }
        facets->mesh = shape->facets(own, facets->status, &share);
      } catch (const std::exception& exception) {
        facets->status.set_failure(exception.what());
      }
      share.done(1);
    }
  };
  std::vector<std::jthread> threads;
  const std::size_t workers = std::min<std::size_t>(shapes.size(), std::thread::hardware_concurrency());
  try {
    for (std::size_t i = 1; i < workers; ++i) threads.emplace_back(work);
  } catch (const std::exception&) {
    // The threads that did start do the work.
  }
  work();
  threads.clear();
  tell_least(raised);
}
