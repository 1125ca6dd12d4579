#include "viewerWriter.h"

#include <filesystem>

#include "viewPage.h"
#include "viewScene.h"
#include "viewSceneText.h"
#include "viewText.h"
#include "vltNames.h"
#include "vltProgress.h"
#include "vltScale.h"

VELABS_OUTPUT_LIBRARY(viewerWriter)

namespace {

const vltFormat viewer_format{"Viewer", vluUNKNOWN, {"*html", "htm"}, "Pages (*.html;*.htm)|*.html;*.htm", "View"};

std::string title_of(const velTableInstance& resources, const annDocument& document, const utString& target) {
  for (const utString& name : {resources.value<utString>("TITLE"), document.root.name}) {
    if (std::string title = vlt_one_line(name); !title.empty()) return title;
  }
  return vlt_one_line(std::filesystem::path(target.str()).stem().string());
}

void write_all(velabsOfStream& stream, std::span<const std::string_view> texts) {
  for (std::string_view text : texts) stream.write(text);
}

}  // namespace

viewerWriter::viewerWriter(velabsOfStream* stream)
    : vltDescribed(viewer_format, "Writes a page that shows the model in any browser."), stream_(*stream) {}

velabsResult viewerWriter::write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) {
  const velLengthUnit unit = vlt_stated_unit(resources, document);
  const std::optional<double> factor = vlt_output_scale_to(unit, resources, document, output);
  if (!factor) return velabsFAILED;
  const auto scene = view_make_scene(document, resources, *factor, output);
  if (!scene) return output.cancelled() ? velabsCANCELLED : velabsFAILED;

  const std::string title = title_of(resources, document, stream_.target());
  write_all(stream_, view_page_head());
  stream_.write(view_html_text(title));
  write_all(stream_, view_page_body());

  viewSceneText text(*scene, title, unit);
  viewData data(stream_);
  vltProgress progress(output, scene->meshes.size() + 1, 1);
  for (std::size_t number = 0; number < scene->meshes.size(); ++number) {
    const viewMesh mesh = view_make_mesh(*scene->meshes[number]);
    data.write(text.add_mesh(mesh, number));
    if (!progress.reached(number + 1)) return velabsCANCELLED;
    if (!text.within_reach()) {
      output.message(velabsERROR, "a part lies so far away, or is so large, that it cannot be shown; SCALE can help");
      return velabsFAILED;
    }
    if (!stream_.good()) return velabsFAILED;
  }
  if (text.triangle_count() == 0) {
    output.message(velabsERROR, "the model holds no triangle with an extent, so there is nothing to show");
    return velabsFAILED;
  }
  data.finish();
  stream_.write("<script type=\"application/json\" id=\"scene\">");
  text.write(stream_);
  stream_.write("</script>\n");
  write_all(stream_, view_page_tail());
  return velabsDONE;
}
