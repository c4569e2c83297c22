// The dialog of a new category, by what a user does with it.
#pragma once

#include "support/Impression.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

struct Dialogue
{
    explicit Dialogue(QWidget& fenetre) : form(fenetre) {}

    template<class Controle> Controle& Trouver(const char* nom) const
    {
        return *form.findChild<Controle*>(QString::fromLatin1(nom));
    }
    QListWidget& List1() const { return Trouver<QListWidget>("List1"); }
    QLineEdit& Text1() const { return Trouver<QLineEdit>("Text1"); }
    QComboBox& dependantcol() const { return Trouver<QComboBox>("dependantcol"); }
    QCheckBox& cbDependant() const { return Trouver<QCheckBox>("cbDependant"); }
    QAbstractButton& Bouton(const char* nom) const { return Trouver<QAbstractButton>(nom); }

    void Cliquer(const char* nom) const { QTest::mouseClick(&Bouton(nom), Qt::LeftButton); }
    void CliquerLigne(int position, Qt::KeyboardModifiers avec = {}) const
    {
        const QRect ligne = List1().visualItemRect(List1().item(position - 1));
        QTest::mouseClick(List1().viewport(), Qt::LeftButton, avec, ligne.center());
    }
    /// Ticks the box and chooses a line of the drop-down list with the keys.
    void ChoisirDependante(int position) const
    {
        cbDependant().setChecked(true);
        dependantcol().setFocus();
        QTest::keyClick(&dependantcol(), Qt::Key_Home);
        for (int i = 1; i < position; ++i)
            QTest::keyClick(&dependantcol(), Qt::Key_Down);
    }
    /// Letters with accents too, which keyClicks does not know.
    void Taper(const QString& texte) const
    {
        for (const QChar lettre : texte)
            QTest::sendKeyEvent(QTest::Click, &Text1(), Qt::Key_unknown, QString(lettre), Qt::NoModifier);
    }
    void Touche(Qt::Key touche, Qt::KeyboardModifiers avec = {}) const
    {
        QTest::keyClick(form.focusWidget(), touche, avec);
    }
    void Coller(const QString& texte) const
    {
        QApplication::clipboard()->setText(texte);
        QTest::keyClick(&Text1(), Qt::Key_V, Qt::ControlModifier);
    }
    /// Each title and Enter, as a collector types them.
    void TaperTitres(const QStringList& titres) const
    {
        for (const QString& titre : titres) {
            if (!Text1().text().isEmpty())
                Touche(Qt::Key_Return);
            Taper(titre);
        }
    }

    /// The titles of the list, which are those of the drop-down list at any time.
    QStringList Titres() const
    {
        QStringList liste, choix;
        for (int i = 0; i < List1().count(); ++i)
            liste.append(List1().item(i)->text());
        for (int i = 0; i < dependantcol().count(); ++i)
            choix.append(dependantcol().itemText(i));
        EXPECT_EQ(liste, choix);
        return liste;
    }
    /// The position selected in the list; 0 for none.
    int Choisie() const { return List1().selectedItems().isEmpty() ? 0 : List1().currentRow() + 1; }
    int DependanteChoisie() const { return dependantcol().currentIndex() + 1; }

    QWidget& form;
};
