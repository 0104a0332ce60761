#pragma once
#include <QAccessibleWidget>

class QAbstractButton;

namespace tarvel {

/// A check box or radio button as the toolkit's accessibility knows it. The toolkit's own would switch it as
/// a program does, which the button's owner isn't told of; this one clicks it as its user does.
class AccessibleToggle : public QAccessibleWidget {
 public:
  explicit AccessibleToggle(QAbstractButton& button);

  QString text(QAccessible::Text kind) const override;
  QAccessible::State state() const override;
  QStringList actionNames() const override;
  void doAction(const QString& name) override;

 private:
  QAbstractButton* button() const;
};

}  // namespace tarvel
