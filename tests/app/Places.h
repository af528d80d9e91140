#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace tamba {

/// What is done with one screen or sheet. `name` is its own: "bank", "bank-empty", "sheet-payment", "settings-Tax".
using PlaceVisit = std::function<void(const QString& name, QWidget& place)>;

/// Shows every screen and sheet one after another, with the sample books and without any, and hands each over while
/// it is in front and settled.
void visitPlaces(const PlaceVisit& visit);

/// Waits for what a place reads or draws a moment later.
void settle(QWidget& place);

}  // namespace tamba
