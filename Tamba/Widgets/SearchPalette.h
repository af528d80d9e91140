#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Background.h"
#include "Tamba/Rows/SearchRows.h"
#include "Tamba/RowsModel.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QFrame;
class QLabel;
class QLineEdit;
class QListView;

namespace tamba {

/// The search over everything: a box over the window that finds records and commands by words. The keys stay in the
/// field, the arrows move in the list below.
class SearchPalette : public QWidget {
    Q_OBJECT

public:
    SearchPalette(AppModel& model, QWidget* window);
    /// `commands` are what can be done besides, `run` does one of them.
    void open(std::vector<SearchCommand> commands, std::function<void(std::size_t)> run);
    /// The keys go back to where they were.
    void dismiss();
    /// Nothing is being prepared: what is listed fits the words.
    [[nodiscard]] bool isSettled() const { return !background_.isBusy(); }

signals:
    void chosen(tamba::Search::Kind kind, const tamba::UUID& id);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Model = RowsModel<SearchRow>;
    void prepare();
    void refresh();
    void place();
    /// Over headings to the next row that can be chosen; `steps` below zero: upwards.
    void move(int steps);
    void select(int row);
    void choose(int row);
    bool takeKey(int key);

    AppModel& model_;
    std::shared_ptr<const Search::Index> index_;
    Library indexed_;  // what the index was made of
    std::vector<SearchCommand> commands_;
    std::function<void(std::size_t)> run_;
    std::optional<Search::Kind> expanded_;
    QPointer<QWidget> before_;  // where the keys were
    Model rows_;
    QFrame* box_;
    QLineEdit* words_;
    QListView* list_;
    QLabel* hint_;
    Background background_;
};

}  // namespace tamba
