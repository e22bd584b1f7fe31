// The page Create: what the movie is like, the power of its preview, and the keys that lead on.
#pragma once

#include "editor/tabs/create_tab.h"
#include "editor/tabs/editor_parts_state.h"
#include "windows/editor/editor_page.h"

#include <QCoreApplication>
#include <QTimer>
#include <array>
#include <functional>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSlider;

namespace kvo {

class CreatePage final : public EditorPage {
  Q_DECLARE_TR_FUNCTIONS(kvo::CreatePage)

 public:
  /// What its keys ask; none may be empty.
  struct Acts {
    std::function<void()> preview;       ///< Cmd_PrevGrph: begins one, or ends the one that runs
    std::function<void()> renderToFile;  ///< Cmd_RendertoFile: shows what the movie can be made as
    std::function<void()> save;
    std::function<void()> help;
    std::function<void()> quit;
    std::function<void()> acted;  ///< behind each act on the page's controls
  };

  /// All but the acts outlive the page.
  CreatePage(const CreateTab& state, const EditorFrame& frame, CreateRules& rules, Acts acts,
             QWidget* parent);

  void draw();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  static constexpr std::size_t kLines = std::tuple_size_v<PreviewLines>;

  void makeOutput();
  void makeRange();
  void makePower();
  void makeKeys();
  QLineEdit* makeField(const QString& name, const QRect& place, const Share& share);
  QPushButton* makeKey(const char* icon, const QString& text, const QString& tip, const QRect& place,
                       const Share& share);
  void act(const std::function<void()>& work);
  void drawOutput();
  void drawLines();
  void drawKeys();
  void drawIcons();

  const CreateTab& state_;
  const EditorFrame& frame_;
  CreateRules& rules_;
  Acts acts_;
  QComboBox* Cmb_Res_ = nullptr;
  QLineEdit* txtWidth_ = nullptr;
  QLineEdit* txtHeight_ = nullptr;
  QComboBox* rate_ = nullptr;
  QComboBox* Cmb_ColorDepth_ = nullptr;
  std::array<QRadioButton*, 2> Opt_RenderRange_{};
  QLineEdit* Txt_From_ = nullptr;
  QLineEdit* Txt_Too_ = nullptr;
  QLabel* Fra_PreviewOpts_ = nullptr;
  QSlider* Sld_CPURequired_ = nullptr;
  QLabel* nothing_ = nullptr;
  std::array<QLabel*, kLines> signs_{};
  std::array<QLabel*, kLines> lines_{};
  QTimer Tmr_Unbold_;
  int drawnChanges_ = 0;
  QCheckBox* Chk_AutoRewind_ = nullptr;
  QCheckBox* ChkDynamic_ = nullptr;
  QPushButton* Cmd_PrevGrph_ = nullptr;
  QPushButton* Cmd_RendertoFile_ = nullptr;
  QPushButton* KVOBut_SaveProject_ = nullptr;
  std::vector<std::pair<QPushButton*, const char*>> icons_;
  bool isDrawing_ = false;
};

}  // namespace kvo
