// The frame of a timeline document, the file, and the whole compile of a collection for a render.
#pragma once

#include "base/result.h"
#include "editor/compiler/compilation.h"

#include <string>

namespace kvo {

/// The document's text from the working texts. Without audio tracks it has an audio group all the same.
std::string renderFileText(const Compilation& c, bool hasAudioTracks);

/// Writes a document to `fileName`, in place of what is there. Fails, and writes nothing, when the text is
/// not well formed.
Outcome writeDocument(Files& files, const std::string& fileName, const std::string& text);

/// Writes the working texts as a document.
Outcome WriteRenderFile(const Compilation& c, bool hasAudioTracks, const std::string& fileName);

/// Fills ClipStopList with the distinct stops of the video group of a document, in its order.
void AnalyseRenderFile(const Compilation& c, const std::string& fileName);

/// Compiles the collection for a render at full power, with every effect and transition: video group and
/// tracks, clip audio and overlay audio as the controls say. Transitions that are too long for their clips
/// are shortened first.
std::string compileText(const Compilation& c);

/// Compiles the collection for a preview of the given power (1 to 10): reduced size, depth and rate, the
/// clips' own sound always, the overlays when there are any.
std::string compilePreviewText(const Compilation& c, int power);

/// As compileText, into `fileName`.
Outcome CompileForRender(const Compilation& c, const std::string& fileName);

}  // namespace kvo
