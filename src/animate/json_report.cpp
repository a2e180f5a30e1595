#include "animate/json_report.h"

#include <nlohmann/json.hpp>

#include "platform/paths.h"

namespace animate {
namespace {

using Json = nlohmann::ordered_json;

void AddFindings(const Findings& found, Json& json) {
  const auto name = [&](std::size_t index) {
    return platform::TextOfPath(found.frames[index].name);
  };
  json["frames"] = found.frames.size();
  json["first"] = name(0);
  json["last"] = name(found.frames.size() - 1);
  json["missing"] = Json::array();
  for (const Gap& gap : found.gaps) {
    json["missing"].push_back({{"after", name(gap.after)},
                               {"first", gap.first},
                               {"last", gap.last},
                               {"count", gap.count}});
  }
  json["twice"] = Json::array();
  for (const std::size_t index : found.doubles) {
    json["twice"].push_back(name(index));
  }
  json["left_out"] = found.leftOut;
}

void AddPlan(const Plan& plan, Json& json) {
  const Film& film = plan.film;
  json["output"] = platform::TextOfPath(plan.output);
  json["format"] = film.format->extension;
  json["shown"] = film.shown.size();
  json["bad"] = Json::array();
  for (const BadFrame& bad : plan.bad) {
    json["bad"].push_back({{"name", platform::TextOfPath(film.frames[bad.frame].path.filename())},
                           {"reason", bad.reason}});
  }
  json["rate"] = film.rate.value;
  json["width"] = film.size.width;
  json["height"] = film.size.height;
  if (plan.way == Way::kConverter && film.format->hasQuality) {
    json["quality"] = film.quality;
  }
  if (film.levels) {
    json["levels"] = {film.levels->low, film.levels->high};
  }
}

}  // namespace

std::string JsonOf(const Account& account, const Failure* failure) {
  Json json = Json::object();
  if (account.found && !account.found->findings.frames.empty()) {
    AddFindings(account.found->findings, json);
  }
  if (account.plan) {
    AddPlan(*account.plan, json);
  }
  if (account.files) {
    json["files"] = Json::array();
    for (const std::filesystem::path& file : *account.files) {
      json["files"].push_back(platform::TextOfPath(file));
    }
  }
  if (account.measured) {
    json["seconds"] = account.measured->length;
    json["bytes"] = account.bytes;
    if (const std::optional<Likeness>& likeness = account.measured->likeness) {
      json["difference"] = likeness->difference;
      if (likeness->isExact) {
        json["exact"] = true;
      }
      json["difference_at"] =
          platform::TextOfPath(account.plan->film.frames[likeness->frame].path.filename());
    }
  }
  if (failure != nullptr) {
    json["error"] = failure->what();
    json["status"] = static_cast<int>(failure->Status());
  }
  // Names that are no UTF-8 are shown as far as they are.
  return json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace animate
