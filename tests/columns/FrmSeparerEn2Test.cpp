// What a user sees and does in the dialog that splits and duplicates columns.
#include "columns/frmSeparerEn2.h"

#include "DialogueDeColonnes.h"
#include "base/Options.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "support/PlateformeDeTest.h"

#include <QClipboard>
#include <QGroupBox>

namespace {

class FrmSeparerEn2 : public DialogueDeColonnes<frmSeparerEn2>
{
protected:
    void OuvrirADupliquer()
    {
        form = std::make_unique<frmSeparerEn2>(doc);
        form->ServirADupliquer();
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    QStringList Visibles() const
    {
        QStringList noms;
        for (const char* nom :
             {"Label1", "Label5", "C1", "nom", "Label4", "Separateur", "btseparer", "btDupliquer", "btAnnuler", "PB"}) {
            if (Trouver<QWidget>(nom).isVisible())
                noms.append(nom);
        }
        return noms;
    }
};

} // namespace

TEST_F(FrmSeparerEn2, SplitsAsItStands)
{
    Ouvrir();
    EXPECT_EQ(form->windowTitle(), "Séparer une colonne en deux");
    EXPECT_EQ(Trouver<QGroupBox>("Frame1").title(), "Séparer en deux");
    EXPECT_EQ(Trouver<QLabel>("Label1").text(),
              "Choisissez la colonne à séparer. Puis choisissez un nom pour la nouvelle colonne et le séparateur. La "
              "partie avant le délimiteur sera mis dans la première colonne et le reste dans la seconde.");
    EXPECT_EQ(Etiquette("C1"), "Colonne de départ");
    EXPECT_EQ(Etiquette("nom"), "Nouveau Nom");
    EXPECT_EQ(Etiquette("Separateur"), "Séparateur");
    EXPECT_EQ(Trouver<QLabel>("Label4").buddy(), &Champ("Separateur"));
    EXPECT_EQ(Bouton("btseparer").text().remove('&'), "Séparer");
    EXPECT_EQ(Bouton("btDupliquer").text().remove('&'), "Dupliquer");
    EXPECT_EQ(Bouton("btAnnuler").text().remove('&'), "Annuler");
    EXPECT_TRUE(MemeImage(Bouton("btAnnuler"), Icone("annuler")));
    EXPECT_EQ(ParDefaut(), "btseparer");
    EXPECT_EQ(Visibles(),
              QStringList({"Label1", "C1", "nom", "Label4", "Separateur", "btseparer", "btDupliquer", "btAnnuler"}));
    EXPECT_EQ(Lignes("C1"), Titres());
    EXPECT_EQ(Liste("C1").currentText(), "");
    EXPECT_EQ(Champ("nom").text(), "");
    EXPECT_EQ(Champ("Separateur").text(), "_-_");
    EXPECT_EQ(ControlesSansNom(*form), QStringList());
}

TEST_F(FrmSeparerEn2, DuplicatesUnderOtherWords)
{
    OuvrirADupliquer();
    EXPECT_EQ(form->windowTitle(), "Dupliquer une colonne");
    EXPECT_EQ(Trouver<QGroupBox>("Frame1").title(), "Dupliquer une colonne");
    EXPECT_EQ(Trouver<QLabel>("Label5").text(),
              "Choisissez la colonne à dupliquer. Puis choisissez un nom pour la nouvelle colonne.");
    EXPECT_EQ(Visibles(), QStringList({"Label5", "C1", "nom", "btDupliquer", "btAnnuler"}));
    EXPECT_EQ(ParDefaut(), "btDupliquer");
}

TEST_F(FrmSeparerEn2, SpeaksTheLanguageInForce)
{
    FichierLangue = PlateformeDeTest::Courante().dossier.Ecrire(
        "lang/english.ini", "[frmSeparerEn2]\r\nbtseparer_C=Split\r\n[other]\r\nmsg84=Duplicate a column\r\n");
    OuvrirADupliquer();
    EXPECT_EQ(Bouton("btseparer").text(), "Split");
    EXPECT_EQ(form->windowTitle(), "Duplicate a column");
    EXPECT_EQ(Trouver<QGroupBox>("Frame1").title(), "Duplicate a column");
}

TEST_F(FrmSeparerEn2, AColumnIsSplitAndTheSeparatorKept)
{
    EcrireOption(Options::SeparerEn2, "-");
    Ouvrir();
    EXPECT_EQ(Champ("Separateur").text(), "-");
    Choisir("C1", 0);
    Taper("nom", "Suite");
    Taper("Separateur", " ");
    QTest::keyClick(&Champ("Separateur"), Qt::Key_Return);
    EXPECT_EQ(Valeurs(), Valeurs({{"Thriller", "", "Jackson", ""}, {"Abbey", "Road", "Beatles", "Paul"}}));
    EXPECT_EQ(Titres(), QStringList({"Titre", "Suite", "Artiste", "Prêté"}));
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_EQ(LireOption(Options::SeparerEn2), " ");
}

TEST_F(FrmSeparerEn2, AColumnIsDuplicatedAndNoSeparatorKept)
{
    OuvrirADupliquer();
    Choisir("C1", 1);
    Taper("nom", "Artiste");
    QTest::keyClick(&Champ("nom"), Qt::Key_Return);
    EXPECT_EQ(Titres(), QStringList({"Titre", "Artiste", "Artiste", "Prêté"}));
    EXPECT_EQ(Valeurs(),
              Valeurs({{"Thriller", "Jackson", "Jackson", ""}, {"Abbey Road", "Beatles", "Beatles", "Paul"}}));
    EXPECT_FALSE(form->isVisible());
    Ouvrir();
    Taper("Separateur", "#");
    Choisir("C1", 0);
    Taper("nom", "Copie");
    Cliquer("btDupliquer");
    EXPECT_EQ(doc.ColCount(), 5);
    EXPECT_EQ(LireOption(Options::SeparerEn2), "_-_");
}

TEST_F(FrmSeparerEn2, ATitleHoldsNoBarAndASeparatorMay)
{
    Ouvrir();
    Taper("nom", "a|b");
    QCoreApplication::processEvents();
    EXPECT_EQ(Champ("nom").text(), "ab");
    EXPECT_EQ(reponses.Cles(), QStringList("msg68"));
    QApplication::clipboard()->setText("|\n");
    Taper("Separateur", "");
    QTest::keyClick(&Champ("Separateur"), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Champ("Separateur").text(), "|");
}

TEST_F(FrmSeparerEn2, WhatIsWrongIsToldAndTheDialogStays)
{
    Ouvrir();
    Cliquer("btseparer");
    TaperEnListe("C1", "titre");
    Cliquer("btseparer");
    TaperEnListe("C1", "Titre");
    Cliquer("btseparer");
    Taper("nom", "X");
    Cliquer("btseparer");
    Choisir("C1", 0);
    Taper("Separateur", "");
    Cliquer("btseparer");
    EXPECT_EQ(reponses.Cles(), QStringList({"msg19", "msg20", "msg21", "msg19", "msg22"}));
    Taper("nom", "");
    Cliquer("btDupliquer");
    EXPECT_EQ(reponses.Cles().last(), "msg21");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(doc.ColCount(), 3);
    EXPECT_FALSE(doc.IlFautSauver);
    EXPECT_EQ(LireOption(Options::SeparerEn2), "_-_");
    Cliquer("btAnnuler");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->result(), QDialog::Rejected);
}

TEST_F(FrmSeparerEn2, TheBarMovesAndTheDialogCannotBeLeftBeforeTheEnd)
{
    for (const char* bouton : {"btseparer", "btDupliquer"}) {
        AjouterDesMilliers();
        Ouvrir();
        pas.clear();
        AChaquePas([this] {
            Cliquer("btAnnuler");
            form->close();
            Cliquer("btseparer");
            Cliquer("btDupliquer");
            EXPECT_TRUE(form->isVisible());
            EXPECT_EQ(doc.ColCount(), 3);
        });
        Choisir("C1", 1);
        Taper("nom", "Suite");
        Cliquer(bouton);
        EXPECT_EQ(pas, QList<int>({1024, 2048})) << bouton;
        EXPECT_EQ(maximum, 3001);
        EXPECT_TRUE(barre->montre);
        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(doc.ColCount(), 4);
    }
}
