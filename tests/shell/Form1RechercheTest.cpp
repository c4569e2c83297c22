// The command that opens the search, with the questions that come before it.
#include "Form1EnFenetre.h"

#include "support/SuiteDeModales.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QTabBar>

using namespace Qt::StringLiterals;

namespace {

class Form1RechercheTest : public Form1Test
{
protected:
    /// Runs the command, looks into the dialog that it opens, and closes that.
    void Rechercher(
        const Form1& fenetre, const std::function<void(QWidget&)>& geste = [](QWidget&) {})
    {
        const SuiteDeModales suite({{u"frmRecherche"_s, [geste](QWidget& form) {
                                         geste(form);
                                         form.close();
                                     }}});
        Commande(fenetre, u"mRechercher"_s).trigger();
    }
    /// The command opens no dialog.
    static void RechercherEnVain(const Form1& fenetre)
    {
        FermeModales dialogues;
        Commande(fenetre, u"mRechercher"_s).trigger();
        QCoreApplication::processEvents();
        EXPECT_EQ(dialogues.fenetres, QStringList());
    }
    static void Chercher(const QWidget& form, const QString& texte)
    {
        auto& champ = *form.findChild<QLineEdit*>(u"Text1"_s);
        champ.clear();
        QTest::keyClicks(&champ, texte);
        QTest::keyClick(&champ, Qt::Key_Return);
        QCoreApplication::processEvents();
    }
    static QString Compte(const QWidget& form) { return form.findChild<QLabel*>(u"StatusBar1_1"_s)->text(); }
    static void Changer(Form1& fenetre, const QString& titre)
    {
        fenetre.myqrt.MyLV->ListItems(1).SetText(titre);
        fenetre.myqrt.IlFautSauver = true;
    }
    /// A category that was never saved.
    Form1& Nouvelle()
    {
        auto& fenetre = dynamic_cast<Form1&>(cadre.NouvelleFenetre());
        fenetre.myqrt.CreerDossier();
        MettreColonnes(fenetre.myqrt.Table, {"Titre", "Prêté"});
        AjouterEntrees(fenetre.myqrt.Table, {{"Blue", ""}});
        fenetre.SetCaption(u"Sans nom"_s);
        cadre.AjouterOnglet(fenetre);
        fenetre.myqrt.Ouvrir->Montrer(false);
        fenetre.myqrt.IlFautSauver = true;
        QCoreApplication::processEvents();
        return fenetre;
    }
    QString TitreDOnglet() const { return cadre.findChild<QTabBar*>(u"TabStrip1"_s)->tabText(0); }
};

} // namespace

TEST_F(Form1RechercheTest, WithoutUnsavedChangesOpensAtOnce)
{
    const Form1& fenetre = Ouvrir();
    Rechercher(fenetre, [&](QWidget& form) {
        EXPECT_EQ(form.findChild<QGroupBox*>(u"Frame1"_s)->title(),
                  u"Recherche dans "_s + dossier.Fichier(u"disques.qrt"_s));
        EXPECT_TRUE(form.isModal());
        Chercher(form, u"dummy"_s);
        EXPECT_EQ(Compte(form), u"'dummy' à été trouvé 1 fois"_s);
    });
    EXPECT_EQ(reponses.Cles(), QStringList());
}

/// The file is of form 1.4, which is no archive: its text goes into the folder by itself.
TEST_F(Form1RechercheTest, HasChangesSavedFirst)
{
    Form1& fenetre = Ouvrir();
    Changer(fenetre, u"Pet Sounds"_s);
    reponses.Preparer(RepOui);
    Rechercher(fenetre, [](QWidget& form) {
        Chercher(form, u"pet sounds"_s);
        EXPECT_EQ(Compte(form), u"'pet sounds' à été trouvé 1 fois"_s);
    });
    ASSERT_EQ(reponses.Cles().size(), 2);
    EXPECT_EQ(
        reponses.Affiches()[0].message.texte,
        u"Pour que la recherche tienne compte des modifications effectuées, veuillez enregistrer votre fichier."_s);
    EXPECT_EQ(reponses.Cles()[0], "msg45");
    EXPECT_EQ(reponses.Affiches()[0].genre, MsgOk);
    EXPECT_EQ(reponses.Affiches()[0].titre, "");
    EXPECT_EQ(reponses.Affiches()[1].message.texte, "Voulez-vous enregistrer les changement dans cette catégorie?")
        << "the question to save comes all the same";
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
}

TEST_F(Form1RechercheTest, SearchesTheLastSavedStateWhenTheSaveIsRefused)
{
    Form1& fenetre = Ouvrir();
    for (const int reponse : {RepAnnuler, RepNon}) {
        Changer(fenetre, u"Pet Sounds"_s);
        reponses.Preparer(reponse);
        Rechercher(fenetre, [](QWidget& form) {
            Chercher(form, u"pet sounds"_s);
            EXPECT_EQ(Compte(form), "");
            Chercher(form, u"abbey"_s);
            EXPECT_EQ(Compte(form), u"'abbey' à été trouvé 1 fois"_s);
        });
        EXPECT_EQ(reponses.Cles().last(), "msg14");
        EXPECT_TRUE(fenetre.myqrt.IlFautSauver);
    }
    fenetre.myqrt.IlFautSauver = false;
}

TEST_F(Form1RechercheTest, OfACategoryThatWasNeverSavedAsksForAFile)
{
    Form1& fenetre = Nouvelle();
    const QString chemin = dossier.Fichier(u"neuve.qrt"_s);
    fichiers.Preparer({chemin}, 2);
    Rechercher(fenetre, [](QWidget& form) {
        Chercher(form, u"blue"_s);
        EXPECT_EQ(Compte(form), u"'blue' à été trouvé 1 fois"_s);
    });
    EXPECT_EQ(reponses.Cles(), QStringList({"msg43"})) << "and no question whether to save";
    EXPECT_EQ(reponses.Affiches()[0].message.texte,
              u"Pour que la recherche fonctionne correctement, veuillez enregistrer votre fichier."_s);
    EXPECT_EQ(fenetre.Caption(), "neuve.qrt");
    EXPECT_EQ(TitreDOnglet(), "neuve.qrt");
    EXPECT_EQ(Commande(fenetre, u"mRecent_0"_s).data().toString(), chemin);
    EXPECT_EQ(cadre.findChild<QAction*>(u"mRecent_0"_s, Qt::FindDirectChildrenOnly)->data().toString(), chemin);
}

TEST_F(Form1RechercheTest, OfACategoryThatStaysUnsavedDoesNotOpen)
{
    Form1& fenetre = Nouvelle();
    fichiers.PreparerAnnulation();
    RechercherEnVain(fenetre);
    EXPECT_EQ(reponses.Cles(), QStringList({"msg43", "msg44"}));
    EXPECT_EQ(reponses.Affiches()[1].message.texte, u"Recherche annulée"_s);
    EXPECT_TRUE(fenetre.myqrt.IlFautSauver);
    EXPECT_EQ(fenetre.Caption(), "Sans nom");
    fenetre.myqrt.IlFautSauver = false;
}

TEST_F(Form1RechercheTest, ShowsWhatWasEditedInTheResults)
{
    Form1& fenetre = Ouvrir();
    const SuiteDeModales suite({{u"frmRecherche"_s,
                                 [](QWidget& form) {
                                     Chercher(form, u"takk"_s);
                                     QTest::keyClick(form.focusWidget(), Qt::Key_Return);
                                 }},
                                {u"frmEditEntree"_s, [](QWidget& form) { form.close(); }},
                                {u"frmRecherche"_s, [](QWidget& form) { form.close(); }}});
    Commande(fenetre, u"mRechercher"_s).trigger();
    EXPECT_EQ(Panneau(fenetre, 2), u"1 selectionnée(s)"_s);
    EXPECT_TRUE(fenetre.myqrt.MyLV->EstSelectionnee(3));
}
