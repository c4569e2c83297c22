// Clicks and looks at the dialogs of settings.
#pragma once

#include "support/Impression.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <gtest/gtest.h>

#include <stdexcept>

template<class Controle = QAbstractButton> Controle& Partie(const QWidget& form, const char* nom)
{
    auto* partie = form.findChild<Controle*>(QString::fromLatin1(nom));
    if (!partie)
        throw std::runtime_error(nom);
    return *partie;
}

inline QTabWidget& Onglets(const QWidget& form)
{
    return Partie<QTabWidget>(form, "tbsOptions");
}

/// Brings the control's pane to the front, as a click on its tab does.
inline void MontrerPageDe(const QWidget& form, const QWidget& controle)
{
    QTabWidget& onglets = Onglets(form);
    for (int i = 0; i < onglets.count(); ++i) {
        if (onglets.widget(i)->isAncestorOf(&controle))
            QTest::mouseClick(onglets.tabBar(), Qt::LeftButton, {}, onglets.tabBar()->tabRect(i).center());
    }
}

inline void Cliquer(const QWidget& form, const char* nom)
{
    auto& bouton = Partie(form, nom);
    if (form.findChild<QTabWidget*>())
        MontrerPageDe(form, bouton);
    const bool case_ = qobject_cast<QCheckBox*>(&bouton) || qobject_cast<QRadioButton*>(&bouton);
    QTest::mouseClick(&bouton, Qt::LeftButton, {}, case_ ? QPoint(8, bouton.height() / 2) : bouton.rect().center());
}

inline bool Cochee(const QWidget& form, const char* nom)
{
    return Partie(form, nom).isChecked();
}

inline QLineEdit& Champ(const QWidget& form, const char* nom)
{
    return Partie<QLineEdit>(form, nom);
}

/// Types a text in the place of the one that stands there.
inline void Taper(const QWidget& form, const char* nom, const QString& texte)
{
    QLineEdit& champ = Champ(form, nom);
    if (form.findChild<QTabWidget*>())
        MontrerPageDe(form, champ);
    QTest::mouseClick(&champ, Qt::LeftButton);
    QTest::keyClick(&champ, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&champ, texte);
}

/// The letters that press something of the form with Alt, as far as it is on show.
inline QStringList Lettres(const QWidget& form)
{
    QStringList lettres;
    const auto ajouter = [&lettres](const QString& texte) {
        if (const auto marque = texte.indexOf(u'&'); marque >= 0)
            lettres.append(texte.sliced(marque + 1, 1).toLower());
    };
    for (const QWidget* controle : form.findChildren<QWidget*>()) {
        if (!controle->isVisibleTo(&form))
            continue;
        if (const auto* bouton = qobject_cast<const QAbstractButton*>(controle))
            ajouter(bouton->text());
        if (const auto* etiquette = qobject_cast<const QLabel*>(controle))
            ajouter(etiquette->text());
    }
    return lettres;
}
