// The comments of a category, as its window shows them.
#include "Form1EnFenetre.h"

#include "support/ArchiveDeTest.h"
#include "support/GardeModale.h"

#include <QDir>
#include <QFile>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

class Form1CommentairesTest : public Form1Test
{
protected:
    /// Opens a catalogue with these comments, and does `geste` in the dialog that shows them.
    Form1& OuvrirEtLire(const QByteArray& commentaires, const std::function<void(QWidget&)>& geste)
    {
        TexteDeCatalogue texte;
        texte.entrees = {"Abbey Road|", "Dummy|"};
        const QByteArray archive = FaireArchive({{"Zelvane.qrt", texte.Texte()}, {"Zelvane.txt", commentaires}});
        const GardeModale garde(geste);
        EXPECT_TRUE(OuvrirFichier(cadre, dossier.Ecrire(u"disques.qrt"_s, archive), TypeQrt2, true));
        QCoreApplication::processEvents();
        return dynamic_cast<Form1&>(*cadre.Documents().back());
    }
    static void Modifier(const Form1& fenetre, const std::function<void(QWidget&)>& geste)
    {
        const GardeModale garde(geste);
        Commande(fenetre, u"mModifierCommentaires"_s).trigger();
    }
    static QPlainTextEdit& Text1(const QWidget& form) { return *form.findChild<QPlainTextEdit*>(u"Text1"_s); }
    static void Taper(const QWidget& form, const QString& texte) { QTest::keyClicks(&Text1(form), texte); }
    static QByteArray Fichier(const Form1& fenetre)
    {
        QFile fichier(fenetre.myqrt.TmpFolder + u"Zelvane.txt"_s);
        return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("no file");
    }
};

} // namespace

TEST_F(Form1CommentairesTest, AreReadOverTheWindowWhileTheFileOpens)
{
    OuvrirEtLire("Mes disques\r\nrang\xe9s", [this](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), "Commentaires (disques.qrt)");
        EXPECT_EQ(Text1(form).toPlainText(), u"Mes disques\nrangés"_s);
        EXPECT_EQ(form.parentWidget(), &cadre);
        const Form1& dessous = dynamic_cast<Form1&>(*cadre.Documents().back());
        EXPECT_EQ(Panneau(dessous, 1), u"2 entrée(s)"_s) << "the window is whole already";
        QTest::keyClick(&form, Qt::Key_Escape);
    });
}

TEST_F(Form1CommentairesTest, AreKeptWhenChangedWhileTheFileOpensButAreNoUnsavedChange)
{
    const Form1& fenetre = OuvrirEtLire("disques", [](QWidget& form) {
        Taper(form, u"Mes "_s);
        form.close();
    });
    EXPECT_EQ(Fichier(fenetre), "Mes disques");
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
}

TEST_F(Form1CommentairesTest, TheWindowStaysWhileTheyAreRead)
{
    OuvrirEtLire("Mes disques", [this](QWidget& form) {
        cadre.close();
        EXPECT_EQ(cadre.Documents().size(), 1);
        EXPECT_TRUE(cadre.isVisible());
        form.close();
    });
    EXPECT_EQ(cadre.Documents().size(), 1);
}

TEST_F(Form1CommentairesTest, AFileThatComesMeanwhileAndDoesNotOpenLeavesNoWindowBehind)
{
    const QString abime =
        dossier.Ecrire(u"abime.qrt"_s, FaireArchive({{.nom = "Zelvane.qrt", .contenu = "texte", .crc = 1}}));
    OuvrirEtLire("Mes disques", [&](QWidget& form) {
        cadre.My_Instance.ReceiveOutputs(abime);
        EXPECT_EQ(reponses.Cles(), QStringList({"msg52"}));
        Passer();
        EXPECT_EQ(cadre.Documents().size(), 1);
        EXPECT_TRUE(form.isVisible());
        form.close();
    });
}

TEST_F(Form1CommentairesTest, TheCommandShowsThemUnderTheNameOfTheFile)
{
    const Form1& fenetre = Ouvrir();
    Modifier(fenetre, [](QWidget& form) {
        EXPECT_EQ(form.objectName(), "frmCommentaires");
        EXPECT_EQ(form.windowTitle(), "Commentaires (disques.qrt)");
        EXPECT_EQ(Text1(form).toPlainText(), QString());
        form.close();
    });
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
    EXPECT_EQ(Fichier(fenetre), "no file");
}

TEST_F(Form1CommentairesTest, WhatTheCommandChangesIsToBeSaved)
{
    Form1& fenetre = Ouvrir();
    Modifier(fenetre, [](QWidget& form) {
        Taper(form, u"Mes disques"_s);
        form.close();
    });
    EXPECT_EQ(Fichier(fenetre), "Mes disques");
    EXPECT_TRUE(fenetre.myqrt.IlFautSauver);
    fenetre.myqrt.IlFautSauver = false;
}

TEST_F(Form1CommentairesTest, LookingAtThemLeavesOtherChangesToBeSaved)
{
    Form1& fenetre = Ouvrir();
    fenetre.myqrt.IlFautSauver = true;
    Modifier(fenetre, [](QWidget& form) { form.close(); });
    EXPECT_TRUE(fenetre.myqrt.IlFautSauver);
    fenetre.myqrt.IlFautSauver = false;
}

TEST_F(Form1CommentairesTest, EmptiedAndSavedTheyAreNotShownAgain)
{
    Form1& fenetre = OuvrirEtLire("Mes disques", [](QWidget& form) { form.close(); });
    Modifier(fenetre, [](QWidget& form) {
        Text1(form).selectAll();
        QTest::keyClick(&Text1(form), Qt::Key_Delete);
        form.close();
    });
    EXPECT_EQ(Fichier(fenetre), "\r\n");
    Commande(fenetre, u"mEnregistrer"_s).trigger();
    fenetre.Decharger();
    Passer();
    EXPECT_TRUE(OuvrirFichier(cadre, dossier.Fichier(u"disques.qrt"_s), TypeQrt2, true)) << "no dialog to wait for";
}

TEST_F(Form1CommentairesTest, ThatCannotBeWrittenAreToldAndChangeNothing)
{
    const Form1& fenetre = Ouvrir();
    ASSERT_TRUE(QDir(fenetre.myqrt.TmpFolder).mkdir(u"Zelvane.txt"_s));
    Modifier(fenetre, [](QWidget& form) {
        Taper(form, u"Mes disques"_s);
        form.close();
    });
    EXPECT_EQ(reponses.Cles(), QStringList({"msg3"}));
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
}
