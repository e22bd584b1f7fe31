#include "intake/analyse_file.h"

#include "base/paths.h"
#include "core/telling/messages.h"

namespace kvo {

void AnalyseFile(Movie& clip, const Files& files, const Clock& clock, ErrorLog& log, bool sizeOnly) {
  const auto path = clipFile(clip);
  if (isAddress(path)) return;
  const auto facts = files.facts(path);
  if (!facts) return log.LogError(LoadResString(178));
  clip.Size(std::to_string(facts->size));
  if (sizeOnly) return;
  clip.FType("Document");
  clip.AttribRO(facts->readOnly);
  clip.AttribH(clip.MovieName().starts_with('.'));
  clip.AttribA(false);
  clip.AttribC(false);
  clip.AttribS(false);
  const auto changed = clock.at(facts->changed);
  clip.Created(dateText(changed) + " " + timeText(changed));
  clip.Accessed(dateText(clock.now()));
  clip.Modified(timeText(changed) + " " + dateText(changed));
}

}  // namespace kvo
