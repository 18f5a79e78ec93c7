// Files of one help folder as pages: what a page may show and lead to.
#pragma once

#include <QImage>
#include <QTextBrowser>
#include <functional>
#include <optional>

namespace chartproject {

/// The bytes of a regular file that lies in a folder or below it, links resolved; nothing for any other file and for
/// one larger than a help file can sensibly be.
[[nodiscard]] std::optional<QByteArray> ReadHelpFile(const QString& folder, const QString& name);

/// Shows one page. Pictures and style sheets come from the page's folder only, and links lead to its anchors and to
/// other pages of that folder. A project from elsewhere can therefore neither show nor open any other file.
class HelpPage : public QTextBrowser {
 public:
  /// @param refused takes the target of a link that was clicked and leads elsewhere
  explicit HelpPage(std::function<void(const QString&)> refused);

  /// @param folder where the page's pictures and links are looked up
  /// False, and nothing changed, when the bytes are not a text.
  [[nodiscard]] bool Show(const QByteArray& bytes, const QString& folder);
  /// What the page asks for while it is laid out; only files of its folder are given. A picture that is not given is
  /// shown as its name.
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  void Follow(const QUrl& target);
  [[nodiscard]] QImage NameAsPicture(const QString& name) const;

  std::function<void(const QString&)> refused_;
  QString folder_;
};

}  // namespace chartproject
