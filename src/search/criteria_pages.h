#pragma once

#include <QFrame>
#include <array>

#include "core/language.h"
#include "search/search_request.h"

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QVBoxLayout;

namespace controls {
class ImageCombo;
class UpDown;
}  // namespace controls

namespace search {

// Picture15: the five pages of optional criteria, one shown at a time, and the box that switches each of
// them.
class CriteriaPages : public QFrame {
    Q_OBJECT
  public:
    enum Criterion { Type, Unit, Date, Size, Note };
    static constexpr int count = 5;

    explicit CriteriaPages(core::Language idioma, QWidget* parent = nullptr);

    void showPage(int page);
    // Everything but the name.
    void readInto(SearchRequest& request) const;
    [[nodiscard]] bool isOn(Criterion criterion) const;
    [[nodiscard]] QComboBox& noteField() { return *m_combo1; }
    [[nodiscard]] controls::ImageCombo& units() { return *m_imageCombo3; }
    void fillTypes();

  signals:
    void enterPressed();      // in a size field, the type or the unit
    void noteEnterPressed();  // in the note field

  protected:
    void changeEvent(QEvent* event) override;

  private:
    QVBoxLayout* addPage(Criterion criterion, const QString& label, const QString& shadow);
    void makeTypePage();
    void makeUnitPage();
    void makeDatePage();
    void makeSizePage();
    void makeNotePage();
    controls::ImageCombo* makeImageCombo(const QString& name, const QString& heading);
    QDateEdit* makePicker(const QString& name, const QString& label);
    QLineEdit* makeSizeField(const QString& name, const QString& label, controls::UpDown* steps);
    void switchCriterion(Criterion criterion, bool on);

    core::Language m_idioma;
    std::array<QWidget*, count> m_pages{};     // Picture11
    std::array<QCheckBox*, count> m_checks{};  // Check1
    controls::ImageCombo* m_imageCombo2 = nullptr;
    controls::ImageCombo* m_imageCombo3 = nullptr;
    QDateEdit* m_dtPicker1 = nullptr;
    QDateEdit* m_dtPicker2 = nullptr;
    QLineEdit* m_text6 = nullptr;
    QLineEdit* m_text7 = nullptr;
    controls::UpDown* m_upDown1 = nullptr;
    controls::UpDown* m_upDown2 = nullptr;
    QComboBox* m_combo1 = nullptr;
};

}  // namespace search
