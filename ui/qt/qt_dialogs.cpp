#include "ui/qt/qt_dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QStorageInfo>
#include <QUrl>

#include "base/program_name.h"
#include "ui/form.h"
#include "ui/qt/qt_look.h"
#include "ui/qt/qt_scale.h"
#include "ui/qt/qt_text.h"
#include "ui/qt/qt_widget_peer.h"

namespace ui::qt {
namespace {

QWidget* ParentFor(const Form& owner) { return owner.visible() ? WidgetOf(owner) : nullptr; }

QMessageBox::Icon ToQIcon(Icon icon) {
  switch (icon) {
    case Icon::kNone:
      return QMessageBox::NoIcon;
    case Icon::kInformation:
      return QMessageBox::Information;
    case Icon::kExclamation:
      return QMessageBox::Warning;
    case Icon::kQuestion:
      return QMessageBox::Question;
  }
  return QMessageBox::NoIcon;
}

QString TitleOf(const std::string& title) {
  return title.empty() ? QString::fromUtf8(base::kProgramName) : ToQString(title);
}

void Fill(QMessageBox& widget, const MessageBox& box, QMessageBox::StandardButtons buttons) {
  widget.setTextFormat(Qt::PlainText);
  widget.setText(ToQLines(box.text));
  widget.setWindowTitle(TitleOf(box.title));
  widget.setIcon(ToQIcon(box.icon));
  widget.setStandardButtons(buttons);
}

/// Qt's way to write a filter: the patterns in brackets behind the name.
QString ToQFilter(const FileDialog& dialog) {
  const QString name = ToQString(dialog.filter_name);
  return name.contains(u'(') ? name : name + QStringLiteral(" (%1)").arg(ToQString(dialog.filter_pattern));
}

/// The home folder and the disks that are mounted for the user.
QList<QUrl> PlacesBeside() {
  QList<QUrl> places{QUrl::fromLocalFile(QDir::homePath()), QUrl::fromLocalFile(QDir::rootPath())};
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
    const QString root = volume.rootPath();
    const bool users =
        root.startsWith("/media/") || root.startsWith("/run/media/") || root.startsWith("/mnt");
    if (users && volume.isReady()) places.append(QUrl::fromLocalFile(root));
  }
  return places;
}

/// Suggestions under a box may still be open when a screen reader presses a dialog's button. While anything
/// pops up, Qt takes no notice of the window that gets the focus next, and no key would reach it any more.
void CloseSuggestions() {
  while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
}

}  // namespace

int QtDialogs::Run(QDialog& dialog) {
  const ModalScope nothing_else_reacts(front_end_, nullptr);
  QObject::connect(&dialog, &QDialog::finished, &CloseSuggestions);
  open_.push_back(&dialog);
  const int result = dialog.exec();
  open_.pop_back();
  return result;
}

void QtDialogs::CloseAll() {
  for (QDialog* dialog : open_) dialog->reject();
}

void QtDialogs::Show(Form& owner, const MessageBox& box) {
  QMessageBox widget(ParentFor(owner));
  Fill(widget, box, QMessageBox::Ok);
  Run(widget);
}

bool QtDialogs::AskYesNo(Form& owner, const MessageBox& box) {
  QMessageBox widget(ParentFor(owner));
  Fill(widget, box, QMessageBox::Yes | QMessageBox::No);
  if (box.no_by_default) widget.setDefaultButton(QMessageBox::No);
  return Run(widget) == QMessageBox::Yes;
}

std::optional<std::string> QtDialogs::PickPath(QFileDialog& dialog) {
  dialog.setSidebarUrls(PlacesBeside());
  if (Run(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return QFile::encodeName(dialog.selectedFiles().first()).toStdString();
}

std::optional<std::string> QtDialogs::BrowseForFolder(Form& owner, const std::string& title,
                                                      const std::string& start, bool /*new_style*/) {
  QFileDialog widget(ParentFor(owner), ToQString(title));
  widget.setFileMode(QFileDialog::Directory);
  widget.setOption(QFileDialog::ShowDirsOnly);
  const QString folder = QFile::decodeName(start.c_str());
  widget.setDirectory(QFileInfo(folder).isDir() ? folder : QDir::homePath());
  return PickPath(widget);
}

std::optional<std::string> QtDialogs::PickFile(Form& owner, const FileDialog& dialog,
                                               QFileDialog::AcceptMode mode) {
  QFileDialog widget(ParentFor(owner), ToQString(dialog.title));
  widget.setAcceptMode(mode);
  widget.setFileMode(QFileDialog::AnyFile);
  widget.setOption(QFileDialog::DontConfirmOverwrite);
  widget.setNameFilter(ToQFilter(dialog));
  widget.setDirectory(QDir::homePath());  // the current directory is the root
  return PickPath(widget);
}

std::optional<std::string> QtDialogs::OpenFile(Form& owner, const FileDialog& dialog) {
  return PickFile(owner, dialog, QFileDialog::AcceptOpen);
}

std::optional<std::string> QtDialogs::SaveFile(Form& owner, const FileDialog& dialog) {
  return PickFile(owner, dialog, QFileDialog::AcceptSave);
}

std::optional<std::string> QtDialogs::AskText(Form& owner, const InputBox& box) {
  QInputDialog widget(ParentFor(owner));
  widget.setWindowTitle(TitleOf(box.title));
  widget.setLabelText(ToQLines(box.prompt));
  if (auto* label = widget.findChild<QLabel*>()) label->setTextFormat(Qt::PlainText);
  widget.move(ToPixels(box.left), ToPixels(box.top));
  if (Run(widget) != QDialog::Accepted) return std::nullopt;
  return FromQString(widget.textValue());
}

}  // namespace ui::qt
