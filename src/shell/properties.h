#pragma once

#include <QWidget>
#include <array>

#include "browse/properties.h"
#include "core/language.h"

class QLabel;
class QLineEdit;

namespace shell {

// Form3, the properties of a unit or folder of the tree.
class Form3 : public QWidget {
    Q_OBJECT
  public:
    explicit Form3(core::Language idioma, QWidget* parent = nullptr);

    void showProperties(const browse::Properties& properties);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QLabel* m_picture;  // Picture1
    std::array<QLineEdit*, 5>
        m_texts;  // Text1 type, Text2 name, Text3 size, Text4 contents, Text5 the heading
};

}  // namespace shell
