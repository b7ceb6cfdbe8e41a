// boxes.cpp - see boxes.h.
#include "gui/boxes.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QStringList>
#include <utility>
#include <vector>

#include "gui/fields.h"
#include "gui/qt_text.h"
#include "runtime/version.h"

namespace sondera {
namespace {

QPointer<QWidget> owner;

/// The panel that a person uses, else the main window: the parent of a box.
QWidget* ParentOfBox() {
  if (QApplication::activeModalWidget()) return QApplication::activeModalWidget();
  QWidget* active = QApplication::activeWindow();
  return active && active->isVisible() ? active : owner.data();
}

QMessageBox::StandardButton RunBox(QMessageBox::Icon icon, std::string_view title, std::string_view text,
                                   QMessageBox::StandardButtons buttons,
                                   QMessageBox::StandardButton byEscape) {
  // With a wait cursor nobody expects a box.
  const bool waiting = QApplication::overrideCursor() != nullptr;
  if (waiting) QApplication::setOverrideCursor(Qt::ArrowCursor);
  QMessageBox box(icon, ToQt(title), ToQt(text), buttons, ParentOfBox());
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.setEscapeButton(byEscape);
  box.setWindowModality(Qt::ApplicationModal);
  const int answer = box.exec();
  if (waiting) QApplication::restoreOverrideCursor();
  return static_cast<QMessageBox::StandardButton>(answer);
}

/// "*.da" -> "da"; empty for "*.*", and where what stands after the last point is more than one word of letters and
/// digits ("Exp. and Theo. Curves").
QString ExtensionOf(const QString& text) {
  const qsizetype dot = text.lastIndexOf(QLatin1Char('.'));
  QString extension = dot < 0 ? QString() : text.mid(dot + 1);
  for (const QChar c : std::as_const(extension))
    if (!c.isLetterOrNumber()) return {};
  return extension;
}

/// A filter of the dialog, in both cases of its letters.
QString NameFilter(const FileKind& kind) {
  const QString text = kind.filter.empty() ? QStringLiteral("*") : ToQt(kind.filter);
  const QString upper = text.toUpper();
  const QString both = upper == text ? text : text + QLatin1Char(' ') + upper;
  return QStringLiteral("%1 (%2)").arg(kind.name.empty() ? text : ToQt(kind.name), both);
}

/// The kinds of a request; without any, the one of its filter.
std::vector<FileKind> KindsOf(const FileRequest& request) {
  return request.kinds.empty() ? std::vector<FileKind>{{request.filter, ""}} : request.kinds;
}

/// Extension of the kind that is chosen in the dialog; that of the first one where all files are shown.
QString ExtensionOfChoice(const std::vector<FileKind>& kinds, const QString& chosen) {
  for (const FileKind& kind : kinds)
    if (NameFilter(kind) == chosen) return ExtensionOf(ToQt(kind.filter));
  return ExtensionOf(ToQt(kinds.front().filter));
}

/// Folders and files, without a look into them: the library's own pictures follow the contents of each file,
/// which takes long in a folder of large records on a server, and for ever where a file has no end.
class PlainIcons : public QFileIconProvider {
 public:
  using QFileIconProvider::icon;
  QIcon icon(const QFileInfo& info) const override { return icon(info.isDir() ? Folder : File); }
  QString type(const QFileInfo& info) const override {
    return info.isDir() ? QObject::tr("Folder") : QObject::tr("%1 File").arg(info.suffix()).trimmed();
  }
};

/// Accepts any typed name, also of a file that does not exist: the program then decides.
class AnyNameDialog : public QFileDialog {
 public:
  using QFileDialog::QFileDialog;
  QString chosen;

 protected:
  void accept() override {
    auto* field = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    QString name = field ? field->text().trimmed() : QString();
    if (name.size() > 1 && name.startsWith(QLatin1Char('"')) && name.endsWith(QLatin1Char('"')))
      name = name.mid(1, name.size() - 2);
    if (name.isEmpty()) return;
    if (name == QStringLiteral("~") || name.startsWith(QStringLiteral("~/")))
      name = QDir::homePath() + name.mid(1);
    const QFileInfo info(directory(), name);
    if (info.isDir()) {
      setDirectory(info.absoluteFilePath());
      field->clear();
      return;
    }
    chosen = info.absoluteFilePath();
    QDialog::accept();  // NOLINT(bugprone-parent-virtual-call): that of QFileDialog takes its own choice
  }
};

/// A combo box has no spoken name but that of its label, and the dialog ties the two together for its field only.
void NameCombos(QFileDialog& dialog) {
  const std::pair<const char*, const char*> kLabels[] = {{"lookInLabel", "lookInCombo"},
                                                         {"fileTypeLabel", "fileTypeCombo"}};
  for (const auto& [labelName, comboName] : kLabels) {
    auto* label = dialog.findChild<QLabel*>(QLatin1String(labelName));
    auto* combo = dialog.findChild<QComboBox*>(QLatin1String(comboName));
    if (label && combo) label->setBuddy(combo);
  }
}

}  // namespace

void SetBoxOwner(QWidget* window) {
  owner = window;
}

void ShowMessageBox(std::string_view title, std::string_view text) {
  RunBox(QMessageBox::Information, title, text, QMessageBox::Ok, QMessageBox::Ok);
}

void ShowNotice(std::string_view text) {
  ShowMessageBox(kAppTitle, text);
}

bool AskYesNo(std::string_view title, std::string_view text) {
  return RunBox(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
         QMessageBox::Yes;
}

std::optional<std::string> AskText(std::string_view title, std::string_view text, int maxLength) {
  QInputDialog box(ParentOfBox());
  box.setWindowTitle(ToQt(title));
  box.setLabelText(ToQt(text));
  box.setInputMode(QInputDialog::TextInput);
  if (auto* field = box.findChild<QLineEdit*>()) {
    field->setAccessibleName(ToQt(text));
    if (maxLength >= 0) LimitBytes(*field, maxLength);
  }
  if (box.exec() != QDialog::Accepted) return {};
  return FromQt(box.textValue());
}

FileChoice AskFile(const FileRequest& request) {
  PlainIcons icons;
  const QString wanted = ToQt(request.directory);
  const QString start = QDir(wanted).exists() && !wanted.isEmpty() ? wanted : QDir::currentPath();
  AnyNameDialog dialog(ParentOfBox(), ToQt(request.title), start);
  dialog.setIconProvider(&icons);
  dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
  dialog.setAcceptMode(request.forSaving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::AnyFile);
  const std::vector<FileKind> kinds = KindsOf(request);
  QStringList filters;
  for (const FileKind& kind : kinds) filters << NameFilter(kind);
  dialog.setNameFilters(filters << QStringLiteral("All files (*)"));
  NameCombos(dialog);
  if (!request.name.empty()) dialog.selectFile(ToQt(request.name));
  if (dialog.exec() != QDialog::Accepted || dialog.chosen.isEmpty()) return {};
  QString path = dialog.chosen;
  const QString extension = ExtensionOfChoice(kinds, dialog.selectedNameFilter());
  if (!extension.isEmpty() && ExtensionOf(QFileInfo(path).fileName()).isEmpty() && !QFileInfo::exists(path))
    path += QLatin1Char('.') + extension;
  return {QFileInfo::exists(path) ? FileAnswer::Exists : FileAnswer::IsNew,
          FromQt(QDir::toNativeSeparators(path))};
}

UnsavedAnswer AskAboutUnsaved(std::string_view question) {
  const std::string text = std::string(question) + "\nThe project has changes that are not saved.";
  QMessageBox box(QMessageBox::Question, ToQt(kAppTitle), ToQt(text), QMessageBox::NoButton, ParentOfBox());
  box.setTextFormat(Qt::PlainText);
  QPushButton* save = box.addButton(QObject::tr("&Save"), QMessageBox::AcceptRole);
  QPushButton* drop = box.addButton(QObject::tr("&Don't save"), QMessageBox::DestructiveRole);
  QPushButton* cancel = box.addButton(QMessageBox::Cancel);
  save->setAccessibleName(QStringLiteral("Save"));
  drop->setAccessibleName(QStringLiteral("Don't save"));
  box.setDefaultButton(save);
  box.setEscapeButton(cancel);
  box.setWindowModality(Qt::ApplicationModal);
  box.exec();
  if (box.clickedButton() == save) return UnsavedAnswer::Save;
  return box.clickedButton() == drop ? UnsavedAnswer::DontSave : UnsavedAnswer::Cancel;
}

}  // namespace sondera
