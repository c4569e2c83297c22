// A list view with a table on the offscreen screen, for tests of what a user sees and does.
#pragma once

#include "support/TableDeTest.h"
#include "vue/ModeleTable.h"
#include "vue/VueTable.h"

#include <QHeaderView>
#include <QTest>

#include <gtest/gtest.h>

template<class Vue> class VueAvecTable : public testing::Test
{
protected:
    /// Shows a table of two columns with `entrees` entries "Titre 001" and so on.
    void Montrer(int entrees)
    {
        MettreColonnes(table, {QStringLiteral("Titre"), QStringLiteral("Artiste")});
        for (int i = 1; i <= entrees; ++i)
            AjouterEntrees(table, {{QStringLiteral("Titre %1").arg(i, 3, 10, QChar(u'0')), QStringLiteral("Artiste")}});
        vue.Afficher(table);
        vue.resize(600, 400);
        vue.show();
        vue.activateWindow();
        vue.setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&vue));
    }

    /// The middle of a cell (both from 1) in the viewport.
    QPoint Milieu(int ligne, int colonne = 1) const
    {
        return vue.visualRect(vue.model()->index(ligne - 1, colonne - 1)).center();
    }
    void Cliquer(int ligne, Qt::KeyboardModifiers avec = Qt::NoModifier, Qt::MouseButton bouton = Qt::LeftButton)
    {
        QTest::mouseClick(vue.viewport(), bouton, avec, Milieu(ligne));
    }
    void Taper(Qt::Key touche, Qt::KeyboardModifiers avec = Qt::NoModifier) { QTest::keyClick(&vue, touche, avec); }

    /// Positions of the selected entries.
    std::vector<int> Choisies() const
    {
        std::vector<int> choisies;
        for (int i = 1; i <= table.ListItems.Count(); ++i) {
            if (table.EstSelectionnee(i))
                choisies.push_back(i);
        }
        return choisies;
    }
    int Focus() const { return table.SelectedItem() ? table.SelectedItem().Index() : 0; }

    MyLV table;
    Vue vue;
};

/// The view of a document.
using VueDeTest = VueAvecTable<VueTable>;
/// The view of a dialog.
using LignesDeTest = VueAvecTable<VueDesLignes>;
