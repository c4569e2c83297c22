// What a user sees and does with the templates in the dialog of a new category.
#include "entries/frmAddCategorie2.h"

#include "base/AfficherMsg.h"
#include "entries/DialogueDeCategorie.h"
#include "support/Accessibilite.h"
#include "support/FileDeReponses.h"
#include "support/PlateformeDeTest.h"

#include <QMenu>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

class ModelesEnDialogue : public testing::Test
{
protected:
    void SetUp() override
    {
        form.show();
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }

    FileDeReponses reponses;
    frmAddCategorie2 form;
    Dialogue d{form};
};

/// Opens the menu of templates and takes the line `numero` of it, from 1, with the keys.
void PrendreModele(const Dialogue& d, int numero)
{
    // The menu runs a loop of its own until a line is taken.
    QTimer::singleShot(0, &d.form, [numero] {
        QWidget* menu = QApplication::activePopupWidget();
        ASSERT_TRUE(menu);
        for (int i = 0; i < numero; ++i)
            QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    d.Cliquer("btModele");
    QCoreApplication::processEvents();
}

} // namespace

TEST_F(ModelesEnDialogue, ATemplateFillsTheEmptyListWithoutAQuestion)
{
    PrendreModele(d, 2);
    EXPECT_EQ(d.Titres(), QStringList({u"Auteur"_s, u"Titre"_s, u"Editeur"_s, u"Année"_s, u"ISBN"_s, u"Genre"_s}));
    EXPECT_EQ(d.Choisie(), 1);
    EXPECT_EQ(form.focusWidget(), &d.Text1());
    EXPECT_EQ(d.Text1().selectedText(), "Auteur");
    EXPECT_FALSE(d.cbDependant().isChecked());
    EXPECT_EQ(d.DependanteChoisie(), 0);
    d.Cliquer("btAjouter");
    EXPECT_EQ(form.result(), QDialog::Accepted);
}

TEST_F(ModelesEnDialogue, WhatWasTypedGoesForATemplateOnlyWhenTheUserAgrees)
{
    d.Taper(u"Pays"_s);
    reponses.Preparer(RepNon);
    PrendreModele(d, 1);
    EXPECT_EQ(d.Titres(), QStringList{u"Pays"_s});
    reponses.Preparer(RepOui);
    PrendreModele(d, 1);
    EXPECT_EQ(reponses.Affiches().last().message.texte, "Remplacer vos colonnes par celles de « Disques » ?");
    EXPECT_EQ(d.Titres().size(), 6);
    EXPECT_EQ(d.Titres().constFirst(), "Artiste");
}

TEST_F(ModelesEnDialogue, TheMenuOfTemplatesOpensWithItsLetterAndTheTabKeyPassesItBy)
{
    EXPECT_EQ(NomAccessible(d.Bouton("btModele")), "Modèle");
    EXPECT_EQ(d.Bouton("btModele").toolTip(), "Commencer par les colonnes d'une collection courante");
    EXPECT_EQ(d.Bouton("btModele").focusPolicy(), Qt::NoFocus);
    QString premier;
    QTimer::singleShot(0, &form, [&premier] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        premier = menu->actions().constFirst()->text();
        menu->close();
    });
    QTest::keyClick(&d.Text1(), Qt::Key_M, Qt::AltModifier);
    QCoreApplication::processEvents();
    EXPECT_EQ(premier, "Disques");
    EXPECT_EQ(d.Titres(), QStringList{u""_s});
}
