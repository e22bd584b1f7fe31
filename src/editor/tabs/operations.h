// The operations of the editor that compile: each runs the compiler on the open collection, as the settings
// and the controls have it, and writes what that corrects into records, settings and controls. A compile is
// no change of the user's: dirty flags stay. A full one answers the change code, which is 0 behind it.
// The program compiles by compileText and compilePreviewText, and times the movie by timeMovie. The steps
// with given names, CreateVideoGroup to AnalyseRenderFile, each run one pass of the same compile and leave
// working texts to each other; together they come to the same document.
#pragma once

#include "base/result.h"
#include "editor/compiler/clip_line.h"
#include "editor/compiler/picture_in_picture.h"
#include "editor/tabs/editing.h"

#include <string>
#include <string_view>

namespace kvo {

/// What settings and controls ask of a compile.
CompileOptions optionsOf(const Editing& e);

/// The output size by the preset list or the two boxes. With an empty preset both are left as they were.
void GetHeightWidth(EditorControls& controls, int& height, int& width);

/// The numbers of "640 x 480"; 0 where there is none.
int GetWidthFromString(std::string_view text);
int GetHeightFromString(std::string_view text);

/// Writes VideoGroupText and keeps the final size as OutputWidth and OutputHeight. `mode` is the power value;
/// below 10 the picture is reduced as the preview table says, and depth, size and rate are changed in place.
void CreateVideoGroup(const Editing& e, int& depth, int& width, int& height, Single& frameRate, int mode);

/// True if any clip has a picture that can be shown. While none has, the clips' own audio and Auto Trim count
/// as off, whatever their preferences say.
bool HaveAtleastOneVidTrack(const Editing& e);

/// Brings KVO2.AutoTrimAudio into line with Chk_AutoTrim; while no clip has a picture that box is disabled.
void SetAutoTrim(const Editing& e, bool Chk_AutoTrim);

/// Auto Trim is in force.
bool trimsMusic(const Editing& e);

/// Fills VideoTrackText and writes TimeLineStart and TimeLineStop into the records. Clips are placed with
/// their transitions within their limits; TransIn takes its limit only where transitions are written. Leaves
/// VideoTotalTime and LastClipStop. Effects and transitions are as the preview's power says while
/// `analysing`; a render has them all. While the change code tells of a change it is a timing pass, which
/// leaves them out.
void CreateClipLine(const Editing& e, bool analysing, ClipLineOptions options);

/// Sets AudioGroupText.
void CreateAudioGroup(EditorState& editor, std::string_view rate);

/// Starts AudioTrackText with the sound of the clips that have a picture. CreateClipLine has to run first.
void CreateAudioClipLine(const Editing& e);

/// Appends a track for each clip of music and leaves AudioTotalTime.
void AddOverlayAudioTracks(const Editing& e);

/// Writes the working texts as a document.
Outcome WriteRenderFile(const Editing& e, bool hasAudioTracks, const std::string& fileName);

/// Fills ClipStopList with the distinct stops of the video group of a document, in its order.
void AnalyseRenderFile(const Editing& e, const std::string& fileName);

/// The timing pass behind an edit: the places of clips and music and the totals, as a compile has them,
/// without its text and what only writing it corrects. The change code stays.
void timeMovie(const Editing& e);

/// Seconds of the music as the movie has it: AudioTotalTime, or what that comes to where none has been left.
double musicTotal(const Editing& e);

/// Compiles the collection for a render at full power, with every effect and transition, and leaves totals
/// and ClipStopList. Gives the text.
std::string compileText(const Editing& e);

/// The same for a preview of the given power (1 to 10).
std::string compilePreviewText(const Editing& e, int power);

/// The longest allowed transition into the clip in seconds, one decimal.
std::string CalcMaxTransitionDuration(const Editing& e, int clipNo);

/// Sets the limit of Sld_In for the clip and brings TransIn within it.
void SortTransitionTimes(const Editing& e, int clipNo);

/// True walks the clips and sets HasAudioFade of those with a picture; false holds VideoTrackFadeAmt within
/// the shortest clip.
void UpdateTrackFade(const Editing& e, bool audioPass);

/// Of a sample's picture.
enum class SampleSize {
  Kept,   ///< of the document that is kept
  Shown,  ///< the movie's shape, within 480 x 360 pixels
};

/// The documents by which one transition, one clip's effects, its colours, and a picture-in-picture are
/// shown.
std::string Previewtransition(const Editing& e, int clipNo, SampleSize size = SampleSize::Kept);
std::string PreviewEffect(const Editing& e, int clipNo, SampleSize size = SampleSize::Kept);
std::string PreviewColourAdjust(const Editing& e, int clipNo, SampleSize size = SampleSize::Kept);
std::string CreatePinPPreview(const Editing& e, int backdropNo, const PicInPicOptions& options);

}  // namespace kvo
