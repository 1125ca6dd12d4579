#include "exaBrepLocations.h"

#include <algorithm>
#include <cstdlib>
#include <set>
#include <utility>
#include <vector>

namespace {

// Locations are multiplied by recursion, so the number of steps is limited.
constexpr std::size_t most_steps = 4096;
constexpr std::size_t most_steps_of_all = 4'000'000;
constexpr std::int64_t highest_power = 1'000'000;

// Numbers of elementary locations, each with its power.
using Steps = std::vector<std::pair<std::size_t, std::int64_t>>;

class LocationWalk {
 public:
  explicit LocationWalk(exaBrepValues& values) : values_(values) {}

  std::size_t run() {
    const std::size_t count = values_.section("Locations", 1);
    for (std::size_t i = 1; i <= count && values_.ok(); ++i) {
      values_.reading("location", i);
      keep(next());
    }
    return kept_.size();
  }

 private:
  Steps next() {
    constexpr std::size_t matrix = 12;
    const int choice = values_.choice();
    if (choice == 1) {
      values_.reals(matrix);
      return {{elementary_++, 1}};
    }
    if (choice == 2) return product();
    values_.fail(std::to_string(choice) + " is no kind of location");
    return {};
  }

  // The factors are stored in reverse order: the one read last comes first.
  Steps product() {
    std::vector<std::pair<std::size_t, std::int64_t>> factors;
    std::size_t length = 0;
    while (const std::size_t number = values_.reference("location", 0, kept_.size())) {
      const std::int64_t power = values_.integer();
      const std::size_t steps = kept_[number - 1]->size();
      const bool is_single = steps == 1;
      const std::int64_t highest = is_single ? highest_power / std::abs((*kept_[number - 1])[0].second)
                                             : static_cast<std::int64_t>(most_steps / steps);
      length += is_single ? 1 : steps * static_cast<std::size_t>(std::abs(std::clamp(power, -highest, highest)));
      if (std::abs(power) > highest || length > most_steps) values_.fail("it is made of too many others");
      if (!values_.ok()) return {};
      factors.emplace_back(number, power);
    }
    Steps result;
    for (auto factor = factors.rbegin(); factor != factors.rend(); ++factor) {
      append(result, *kept_[factor->first - 1], factor->second);
    }
    return result;
  }

  static void append(Steps& target, const Steps& steps, std::int64_t power) {
    if (steps.size() == 1) return append(target, steps[0].first, steps[0].second * power);
    for (; power > 0; --power) {
      for (const auto& [number, times] : steps) append(target, number, times);
    }
    for (; power < 0; ++power) {
      for (auto step = steps.rbegin(); step != steps.rend(); ++step) append(target, step->first, -step->second);
    }
  }

  static void append(Steps& target, std::size_t number, std::int64_t times) {
    if (!target.empty() && target.back().first == number) {
      target.back().second += times;
      if (target.back().second == 0) target.pop_back();
    } else if (times != 0) {
      target.emplace_back(number, times);
    }
  }

  void keep(Steps&& steps) {
    if (!values_.ok() || steps.empty()) return;
    steps_of_all_ += steps.size();
    if (steps_of_all_ > most_steps_of_all) return values_.fail("the locations are made of too many others");
    const auto [place, is_new] = known_.insert(std::move(steps));
    if (is_new) kept_.push_back(&*place);
  }

  exaBrepValues& values_;
  std::set<Steps> known_;
  std::vector<const Steps*> kept_;
  std::size_t elementary_ = 0;
  std::size_t steps_of_all_ = 0;
};

}  // namespace

std::size_t exa_walk_locations(exaBrepValues& values) {
  return LocationWalk(values).run();
}
