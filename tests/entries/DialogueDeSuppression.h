// The list of what is to be deleted, by what a user does with it.
#pragma once

#include "entries/frmSuppr.h"
#include "support/GardeModale.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"
#include "vue/VueDesLignes.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>

inline VueDesLignes& Liste(const QWidget& form)
{
    return *form.findChild<VueDesLignes*>("ListView1");
}
inline QPushButton& Bouton(const QWidget& form, const char* nom)
{
    return *form.findChild<QPushButton*>(QString::fromLatin1(nom));
}
inline QCheckBox& Case(const QWidget& form)
{
    return *form.findChild<QCheckBox*>("ckDependant");
}
inline QString Compte(const QWidget& form)
{
    return form.findChild<QLabel*>("Lcount")->text();
}
inline void Cliquer(const QWidget& form, const char* nom)
{
    QTest::mouseClick(&Bouton(form, nom), Qt::LeftButton);
}
inline void CliquerSurCase(const QWidget& form)
{
    QTest::mouseClick(&Case(form), Qt::LeftButton, Qt::NoModifier, QPoint(8, Case(form).height() / 2));
}

inline QStringList Colonne(const QWidget& form, int colonne)
{
    const QAbstractItemModel& modele = *Liste(form).model();
    QStringList textes;
    for (int i = 0; i < modele.rowCount(); ++i)
        textes.append(modele.index(i, colonne - 1).data().toString());
    return textes;
}
/// "x" for a row that is checked, "-" for one that is not.
inline QString Coches(const QWidget& form)
{
    const QAbstractItemModel& modele = *Liste(form).model();
    QString coches;
    for (int i = 0; i < modele.rowCount(); ++i)
        coches += modele.index(i, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked ? u'x' : u'-';
    return coches;
}

/// Clicks on the check mark of a row (from 1).
inline void CliquerSurCoche(const QWidget& form, int ligne)
{
    const QRect place = Liste(form).visualRect(Liste(form).model()->index(ligne - 1, 0));
    QTest::mouseClick(Liste(form).viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(place.left() + 10, place.center().y()));
}
/// Clicks on the text of a row (from 1), in the second column.
inline void CliquerSurLigne(const QWidget& form, int ligne, Qt::KeyboardModifiers avec = Qt::NoModifier)
{
    const QRect place = Liste(form).visualRect(Liste(form).model()->index(ligne - 1, 1));
    QTest::mouseClick(Liste(form).viewport(), Qt::LeftButton, avec, place.center());
}
inline void CliquerSurTitre(const QWidget& form, int colonne)
{
    QHeaderView& titres = *Liste(form).horizontalHeader();
    const int x = titres.sectionViewportPosition(colonne - 1) + titres.sectionSize(colonne - 1) / 2;
    QTest::mouseClick(titres.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(x, titres.height() / 2));
}

class FrmSupprTest : public testing::Test
{
protected:
    FrmSupprTest()
    {
        MettreColonnes(table, {"Titre", "Coffret", "Prêté"});
        table.ColumnHeaders(1).SetWidth(3000);
        table.ColumnHeaders(2).SetWidth(1500);
    }

    void Entrees(const QStringList& titres, const QStringList& coffrets = {})
    {
        for (qsizetype i = 0; i < titres.size(); ++i)
            AjouterEntrees(table, {{titres[i], coffrets.value(i)}});
        table.Selectionner(1, table.ListItems.Count(), true);
    }
    /// Runs the dialog and does `geste` in it; it is closed afterwards where it is still open.
    bool Lancer(const std::function<void(QWidget&)>& geste)
    {
        const GardeModale garde([&](QWidget& form) {
            geste(form);
            form.close();
        });
        frmSuppr form;
        return form.Lancer(doc);
    }
    void DonnerImage(int position, const QString& nom)
    {
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(Qt::red);
        ASSERT_TRUE(image.save(document.dossier.Fichier(nom)));
        table.ListItems(position).SetTag(nom);
    }

    DocumentDeTest document;
    MyLV& table = document.table;
    Categorie& doc = document.doc;
};
