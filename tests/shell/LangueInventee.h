// A language in which each text is known by a mark: what is shown without it has no text in any language's file.
#pragma once

#include <QString>
#include <QStringList>

class QMenu;
class QWidget;

/// Writes the language into the program's folder; its path.
QString EcrireLangueInventee();

/// Texts of a form that are not of the language: captions, hints, titles of lists, tabs, and what assistive
/// technologies tell. Each has the control's name in front. `donnees`: texts of the user, or of the test.
QStringList SansTraduction(const QWidget& form, const QStringList& donnees);

/// The same for the items of a menu.
QStringList SansTraduction(const QMenu& menu, const QStringList& donnees);

/// Names of the controls that have none are those of their classes.
QString NomDuControle(const QWidget& controle);
