// What a user sees and does in the dialog that merges columns.
#include "columns/frmFusionner.h"

#include "DialogueDeColonnes.h"
#include "base/Options.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "support/PlateformeDeTest.h"

#include <QClipboard>
#include <QWheelEvent>

namespace {

class FrmFusionner : public DialogueDeColonnes<frmFusionner>
{
};

} // namespace

TEST_F(FrmFusionner, OffersTheColumnsAndTheSeparatorUsedLast)
{
    Ouvrir();
    EXPECT_EQ(form->windowTitle(), "Fusionner deux colonnes");
    EXPECT_EQ(Trouver<QLabel>("Label1").text(),
              "Choisissez les deux colonnes à fusionner. Puis choisissez un séparateur. Le resultat sera mis dans la "
              "première colonne.");
    EXPECT_EQ(Etiquette("C1"), "1ère colonne");
    EXPECT_EQ(Etiquette("C2"), "2ème colonne");
    EXPECT_EQ(Etiquette("Separateur"), "Séparateur");
    EXPECT_EQ(Bouton("btfusionner").text().remove('&'), "Fusionner");
    EXPECT_EQ(Bouton("btAnnuler").text().remove('&'), "Annuler");
    EXPECT_TRUE(MemeImage(Bouton("btAnnuler"), Icone("annuler")));
    EXPECT_EQ(ParDefaut(), "btfusionner");
    EXPECT_EQ(Lignes("C1"), Titres());
    EXPECT_EQ(Lignes("C2"), Titres());
    EXPECT_EQ(Liste("C1").currentText(), "");
    EXPECT_EQ(Champ("Separateur").text(), "_-_");
    EXPECT_FALSE(PB().isVisible());
    EXPECT_EQ(ControlesSansNom(*form), QStringList());
    EcrireOption(Options::FusionnerCol, " / ");
    Ouvrir();
    EXPECT_EQ(Champ("Separateur").text(), " / ");
}

TEST_F(FrmFusionner, SpeaksTheLanguageInForce)
{
    FichierLangue =
        PlateformeDeTest::Courante().dossier.Ecrire("lang/english.ini", "[frmFusionner]\r\nbtfusionner_C=Merge\r\n");
    Ouvrir();
    EXPECT_EQ(Bouton("btfusionner").text(), "Merge");
}

TEST_F(FrmFusionner, MergesAndKeepsTheSeparator)
{
    Ouvrir();
    Choisir("C1", 1);
    Choisir("C2", 0);
    Taper("Separateur", "é ");
    Cliquer("btfusionner");
    EXPECT_EQ(Titres(), QStringList({"Artiste", "Prêté"}));
    EXPECT_EQ(Valeurs(), Valeurs({{"Jacksoné Thriller", ""}, {"Beatlesé Abbey Road", "Paul"}}));
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_EQ(LireOption(Options::FusionnerCol), "é ");
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(FrmFusionner, WhatIsWrongIsToldAndTheDialogStays)
{
    Ouvrir();
    Cliquer("btfusionner");
    Choisir("C1", 0);
    TaperEnListe("C2", "Artiste");
    Cliquer("btfusionner");
    Choisir("C2", 0);
    Cliquer("btfusionner");
    Choisir("C2", 1);
    Taper("Separateur", "a|");
    Cliquer("btfusionner");
    EXPECT_EQ(reponses.Cles(), QStringList({"msg15", "msg15", "msg16", "msg17"}));
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(doc.ColCount(), 3);
    EXPECT_FALSE(doc.IlFautSauver);
    EXPECT_EQ(LireOption(Options::FusionnerCol), "_-_");
}

TEST_F(FrmFusionner, WithoutASeparatorTheUserIsAsked)
{
    Ouvrir();
    Choisir("C1", 0);
    Choisir("C2", 1);
    Taper("Separateur", "");
    reponses.Preparer(RepNon);
    Cliquer("btfusionner");
    EXPECT_EQ(doc.ColCount(), 3);
    EXPECT_TRUE(form->isVisible());
    reponses.Preparer(RepOui);
    QTest::keyClick(&Champ("Separateur"), Qt::Key_Return);
    EXPECT_EQ(Valeurs(), Valeurs({{"ThrillerJackson", ""}, {"Abbey RoadBeatles", "Paul"}}));
    EXPECT_EQ(LireOption(Options::FusionnerCol), "");
}

TEST_F(FrmFusionner, ASeparatorHasOneLine)
{
    Ouvrir();
    QApplication::clipboard()->setText("a\nb");
    Champ("Separateur").setFocus();
    Champ("Separateur").selectAll();
    QTest::keyClick(&Champ("Separateur"), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Champ("Separateur").text(), "a b");
}

TEST_F(FrmFusionner, TheWheelChoosesNoColumn)
{
    Ouvrir();
    Choisir("C1", 0);
    const QPointF milieu = Liste("C1").rect().center();
    QWheelEvent tour(milieu, Liste("C1").mapToGlobal(milieu), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&Liste("C1"), &tour);
    EXPECT_EQ(Liste("C1").currentText(), "Titre");
}

TEST_F(FrmFusionner, CancelChangesNothing)
{
    for (const auto& quitter : {std::function<void()>([this] { Cliquer("btAnnuler"); }),
                                std::function<void()>([this] { QTest::keyClick(form.get(), Qt::Key_Escape); })}) {
        Ouvrir();
        Choisir("C1", 0);
        Choisir("C2", 1);
        quitter();
        EXPECT_FALSE(form->isVisible());
    }
    EXPECT_EQ(doc.ColCount(), 3);
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(FrmFusionner, TheBarMovesAndTheDialogCannotBeLeftBeforeTheEnd)
{
    AjouterDesMilliers();
    Ouvrir();
    AChaquePas([this] {
        Cliquer("btAnnuler");
        form->close();
        Cliquer("btfusionner");
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(doc.ColCount(), 3);
    });
    Choisir("C1", 0);
    Choisir("C2", 1);
    Cliquer("btfusionner");
    EXPECT_EQ(pas, QList<int>({1024, 2048}));
    EXPECT_EQ(minimum, 0);
    EXPECT_EQ(maximum, 3001);
    EXPECT_TRUE(barre->montre);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(doc.ColCount(), 2);
    EXPECT_EQ(doc.Table.ListItems(3000).Text(), "a2999_-_b_-_c");
}

TEST_F(FrmFusionner, ATableThatEventsChangeIsMergedAllTheSame)
{
    AjouterDesMilliers();
    Ouvrir();
    AChaquePas([this] { doc.Table.ListItems(1).SetText("autre"); });
    Choisir("C1", 0);
    Choisir("C2", 1);
    Cliquer("btfusionner");
    EXPECT_EQ(doc.Table.ListItems(1).Text(), "autre_-_b_-_c");
    EXPECT_EQ(doc.Table.ListItems(3000).Text(), "a2999_-_b_-_c");
    EXPECT_EQ(doc.ColCount(), 2);
}
