#include "auxwindows/TarvelURLWindowController.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>

#include "auxwindows/FirstPlace.h"
#include "auxwindows/TextButton.h"
#include "ui/Fonts.h"
#include "ui/NamedColors.h"
#include "ui/SystemAppearance.h"

namespace tarvel {
namespace {

constexpr double kWidth = 480.0;
constexpr int kMargin = 20;
constexpr int kSpacing = 8;
constexpr int kFieldMargin = 4;
constexpr double kCaptionSize = 13.0;
constexpr double kMessageSize = 12.0;
const QString kUndoName = QStringLiteral("Change URL");

CommandState undoState(bool enabled, const char* verb, const QString& name) {
  const std::string title = name.isEmpty() ? verb : verb + (" " + name.toStdString());
  return {.enabled = enabled, .title = title};
}

/// Without blanks at its ends, and without what may come from the clipboard but is no part of any address:
/// the state file couldn't hold it.
QString tidied(QString text) {
  text.removeIf([](QChar c) { return c.category() == QChar::Other_Control || c.isNonCharacter(); });
  return text.trimmed();
}

}  // namespace

/// One step of the window's undo.
class TarvelURLWindowController::URLChange : public QUndoCommand {
 public:
  URLChange(TarvelURLWindowController& controller, QString before, QString after)
      : QUndoCommand(kUndoName),
        controller_(controller),
        before_(std::move(before)),
        after_(std::move(after)) {}
  void undo() override { controller_.putValue(before_); }
  void redo() override { controller_.putValue(after_); }

 private:
  TarvelURLWindowController& controller_;
  QString before_;
  QString after_;
};

/// Leaves the undo keys to the menu while the field has nothing of its own to undo.
class TarvelURLWindowController::FieldKeys : public QObject {
 public:
  explicit FieldKeys(QLineEdit& field) : QObject(&field), field_(field) { field.installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::ShortcutOverride) return QObject::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const bool forMenu = (key.matches(QKeySequence::Undo) && !field_.isUndoAvailable()) ||
                         (key.matches(QKeySequence::Redo) && !field_.isRedoAvailable());
    if (forMenu) event->ignore();
    return forMenu;
  }

 private:
  QLineEdit& field_;
};

TarvelURLWindowController::TarvelURLWindowController(const WindowContext& context)
    : WindowController(std::make_unique<Window>()), context_(context) {
  window()->setWindowTitle(QStringLiteral("Server Address"));
  makeViews();
  connectViews();
  putValue(QString::fromStdString(context_.dataModel.tarvelServerURL));
}

TarvelURLWindowController::~TarvelURLWindowController() {
  // The window and its field go after this; on the way the field may end its editing, and the focus leaves.
  urlField_->disconnect();
  QObject::disconnect(qApp, &QApplication::focusChanged, window(), nullptr);
}

void TarvelURLWindowController::makeViews() {
  auto* caption = new QLabel(QStringLiteral("Schedules are fetched from this address:"), window());
  caption->setFont(systemFont(kCaptionSize));
  urlField_ = new QLineEdit(window());
  urlField_->setAccessibleName(QStringLiteral("Server address"));
  urlField_->setTextMargins(kFieldMargin, kFieldMargin, kFieldMargin, kFieldMargin);
  new FieldKeys(*urlField_);
  messageField_ = new QLabel(window());
  messageField_->setFont(systemFont(kMessageSize));
  messageField_->setTextFormat(Qt::PlainText);
  defaultButton_ = makeTextButton(QStringLiteral("Use Default"), window());
  cancelButton_ = makeTextButton(QStringLiteral("Cancel"), window());
  enterButton_ = makeTextButton(QStringLiteral("Enter"), window());
  enterButton_->setDefault(true);

  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(kSpacing);
  buttons->addWidget(defaultButton_);
  buttons->addStretch(1);
  buttons->addWidget(cancelButton_);
  buttons->addWidget(enterButton_);
  auto* column = new QVBoxLayout(window());
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kSpacing);
  column->addWidget(caption);
  column->addWidget(urlField_);
  column->addWidget(messageField_);
  column->addStretch(1);
  column->addLayout(buttons);
  placeInMiddle(*window(), {kWidth, double(column->sizeHint().height() + kMargin)});
}

void TarvelURLWindowController::connectViews() {
  const auto on = [this](auto* sender, auto signal, void (TarvelURLWindowController::*action)()) {
    QObject::connect(sender, signal, window(), [this, action] { (this->*action)(); });
  };
  on(urlField_, &QLineEdit::textEdited, &TarvelURLWindowController::controlTextDidChange);
  on(urlField_, &QLineEdit::editingFinished, &TarvelURLWindowController::editURLName);
  on(urlField_, &QLineEdit::returnPressed, &TarvelURLWindowController::okay);
  on(defaultButton_, &QPushButton::clicked, &TarvelURLWindowController::setDefault);
  on(cancelButton_, &QPushButton::clicked, &TarvelURLWindowController::cancel);
  on(enterButton_, &QPushButton::clicked, &TarvelURLWindowController::okay);
  on(new QShortcut(Qt::Key_Escape, window()), &QShortcut::activated, &TarvelURLWindowController::cancel);
  if (const SystemAppearance* system = SystemAppearance::instance())
    on(system, &SystemAppearance::changed, &TarvelURLWindowController::updateMessage);
  // The return key is the Enter button's unless another button has the keyboard.
  QObject::connect(qApp, &QApplication::focusChanged, window(), [this](QWidget*, const QWidget* now) {
    enterButton_->setDefault(now != defaultButton_ && now != cancelButton_);
  });
}

void TarvelURLWindowController::updateMessage() {
  const bool isBlank = serverURL_.trimmed().isEmpty();
  QPalette palette = window()->palette();
  palette.setColor(QPalette::WindowText, color(isBlank ? kSystemRed : kSecondaryLabel, window()));
  messageField_->setPalette(palette);
  messageField_->setText(isBlank ? QStringLiteral("URL may not be blank") : QString());
  enterButton_->setEnabled(!isBlank);
}

void TarvelURLWindowController::putValue(const QString& value) {
  serverURL_ = value;
  tmpServerURL_ = value;
  urlField_->setText(value);
  updateMessage();
}

bool TarvelURLWindowController::setValue(const QString& value) {
  if (value == serverURL_) return false;
  localUndoManager_.push(new URLChange(*this, serverURL_, value));  // which puts the value in
  return true;
}

void TarvelURLWindowController::editURLName() {
  const QString value = tidied(urlField_->text());
  if (!setValue(value) && urlField_->text() != value) urlField_->setText(value);
}

void TarvelURLWindowController::setDefault() {
  const QString value = QString::fromStdString(context_.dataModel.defaultServerURL);
  if (!setValue(value)) urlField_->setText(value);
}

void TarvelURLWindowController::controlTextDidChange() {
  tmpServerURL_ = urlField_->text();
  updateMessage();
}

void TarvelURLWindowController::okay() {
  editURLName();
  if (!enterButton_->isEnabled()) return;
  urlField_->clearFocus();
  context_.dataModel.setServerURL(serverURL_.toStdString());
  localUndoManager_.clear();
  window()->close();
}

void TarvelURLWindowController::cancel() {
  localUndoManager_.clear();
  window()->close();
}

std::optional<CommandState> TarvelURLWindowController::validateMenuItem(const Command& command) const {
  if (command.action == "undo:")
    return undoState(localUndoManager_.canUndo(), "Undo", localUndoManager_.undoText());
  if (command.action == "redo:")
    return undoState(localUndoManager_.canRedo(), "Redo", localUndoManager_.redoText());
  if (command.action == "copyAsText:") return CommandState{.enabled = urlField_->hasSelectedText()};
  return std::nullopt;
}

void TarvelURLWindowController::performCommand(const Command& command) {
  if (command.action == "undo:") {
    localUndoManager_.undo();
  } else if (command.action == "redo:") {
    localUndoManager_.redo();
  } else {
    urlField_->copy();
  }
}

void TarvelURLWindowController::windowWillClose() {
  context_.application.removeWindowController(*this, SaveFrame::yes);
}

}  // namespace tarvel
