#pragma once

#include "TambaCore/Reports/Reports.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace tamba {

class Segments;

/// What leaves the books once a year: the bundle for the accountant, the journal for other programs, and the plain
/// tables.
class YearEndCard : public QWidget {
    Q_OBJECT

public:
    explicit YearEndCard(QWidget* parent = nullptr);
    /// "FY 2026-27"
    void setYear(const QString& year);
    /// One bundle at a time.
    void setBusy(bool busy);

signals:
    void bundleChosen();
    void journalChosen(tamba::IncomeBasis basis);
    void tablesChosen();

private:
    struct Line {
        QLabel* title;
        QPushButton* button;
    };
    Line addLine(QVBoxLayout& to, const QString& words, const QString& action, const char* name,
                 QWidget* choice = nullptr);

    Line bundle_, journal_, tables_;
    Segments* basis_;
};

}  // namespace tamba
