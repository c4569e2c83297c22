// What a user does in the editor of entries once it is open.
#pragma once

#include "support/GardeModale.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QTest>
#include <QTreeWidget>

#include <gtest/gtest.h>

inline void Cliquer(const QWidget& form, const char* nom)
{
    QTest::mouseClick(form.findChild<QAbstractButton*>(QString::fromLatin1(nom)), Qt::LeftButton);
}

/// Types into the row (from 1) as a user does: a click on it leads to the field.
inline void Taper(const QWidget& form, int ligne, const QString& texte)
{
    const auto& lv = *form.findChild<QTreeWidget*>("LV");
    const QRect place = lv.visualItemRect(lv.topLevelItem(ligne - 1));
    QTest::mouseClick(lv.viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    QTest::keyClick(form.focusWidget(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(form.focusWidget(), Qt::Key_Delete);
    QTest::keyClicks(form.focusWidget(), texte);
}

/// Chooses the first image in the dialog that a click on the picture opens.
inline void ChoisirPremiereImage(const QWidget& form)
{
    const auto geste = [](QWidget& dialogue) {
        auto* liste = dialogue.findChild<QAbstractItemView*>("List1");
        liste->setCurrentIndex(liste->model()->index(0, 0));
        Cliquer(dialogue, "btOK");
    };
    // Events run while the dialog is filled, before it is shown.
    const GardeModale choix(geste, 5000, &form);
    QTest::mouseClick(form.findChild<QWidget*>("Img"), Qt::LeftButton);
}
