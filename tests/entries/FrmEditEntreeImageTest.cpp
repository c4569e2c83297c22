// Pictures that are dropped on the image of the editor, or pasted there.
#include "EditeurDeTest.h"
#include "support/Glissement.h"

#include <QClipboard>
#include <QDir>
#include <QMenu>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

class FrmEditEntreeImageTest : public EditeurDeTest
{
protected:
    ~FrmEditEntreeImageTest() override { QApplication::clipboard()->clear(); }

    static QImage Dessin(const QColor& couleur)
    {
        QImage image(20, 10, QImage::Format_RGB32);
        image.fill(couleur);
        return image;
    }
    /// A file outside the category.
    QUrl Fichier(const QString& nom, const QColor& couleur = Qt::red) const
    {
        EXPECT_TRUE(Dessin(couleur).save(ailleurs.Fichier(nom)));
        return QUrl::fromLocalFile(ailleurs.Fichier(nom));
    }
    /// True when the zone takes it. What comes of it is there then.
    bool Deposer(const QList<QUrl>& adresses)
    {
        Glissement glissement{QString()};
        glissement.donnees.clear();
        glissement.donnees.setUrls(adresses);
        return Deposer(glissement);
    }
    bool Deposer(Glissement& glissement)
    {
        const bool prise = glissement.Deposer(Img(), Img().rect().center());
        QCoreApplication::processEvents();
        return prise;
    }
    static void Copier(QMimeData* donnees) { QApplication::clipboard()->setMimeData(donnees); }
    QStringList Images() const { return QDir(doc.doc.TmpFolder).entryList({u"*.bmp"_s, u"*.jpg"_s}, QDir::Files); }
    /// The menu under the right mouse button on the zone, which is open then.
    QMenu& Menu()
    {
        QContextMenuEvent demande(QContextMenuEvent::Mouse, Img().rect().center(),
                                  Img().mapToGlobal(Img().rect().center()));
        QApplication::sendEvent(&Img(), &demande);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        EXPECT_TRUE(menu);
        return *menu;
    }

    DossierDeTest ailleurs;
};

} // namespace

TEST_F(FrmEditEntreeImageTest, ADroppedFileBecomesTheImageOfTheEntry)
{
    Editer(1);
    EXPECT_TRUE(Deposer({Fichier("pochette.bmp")}));
    EXPECT_EQ(form.ImgTag(), "pochette.bmp");
    EXPECT_EQ(Couleur(), QColor(Qt::red));
    EXPECT_EQ(Images(), QStringList("pochette.bmp"));
    EXPECT_EQ(doc.table.ListItems(1).Tag(), "") << "not before it is validated";
    Cliquer("btAjouter");
    EXPECT_EQ(doc.table.ListItems(1).Tag(), "pochette.bmp");
    EXPECT_EQ(doc.table.ListItems(1).SmallIcon(), "ico");
}

TEST_F(FrmEditEntreeImageTest, TheDropIsACopyAndIsOverBeforeAnythingIsAsked)
{
    Editer(1);
    Glissement glissement{QString()};
    glissement.donnees.clear();
    glissement.donnees.setUrls({Fichier("a.png")});
    glissement.actions = Qt::CopyAction | Qt::MoveAction;
    EXPECT_TRUE(glissement.Deposer(Img(), Img().rect().center()));
    EXPECT_EQ(glissement.action, Qt::CopyAction) << "the file stays where it is";
    EXPECT_EQ(form.ImgTag(), "");
    QCoreApplication::processEvents();
    EXPECT_EQ(form.ImgTag(), "a.jpg");
}

TEST_F(FrmEditEntreeImageTest, WhatIsRefusedLeavesTheImageAsItWas)
{
    EcrireImage("avant.bmp", Qt::blue);
    doc.table.ListItems(1).SetTag("avant.bmp");
    Editer(1);
    ailleurs.Ecrire("notes.txt", "Bonjour");
    EXPECT_TRUE(Deposer({QUrl::fromLocalFile(ailleurs.Fichier("notes.txt"))}));
    EXPECT_TRUE(Deposer({Fichier("a.bmp"), Fichier("b.bmp")}));
    EXPECT_TRUE(Deposer({QUrl(u"https://exemple.invalid/a.jpg"_s)}));
    EXPECT_EQ(messages.Cles(), QStringList({"msgImageIllisible", "msgUneSeuleImage", "msgImageAilleurs"}));
    EXPECT_EQ(form.ImgTag(), "avant.bmp");
    EXPECT_EQ(Couleur(), QColor(Qt::blue));
}

TEST_F(FrmEditEntreeImageTest, ATextAndAFileThatIsToBeMovedAreNotTaken)
{
    Editer(1);
    Glissement texte{u"Abbey Road"_s};
    EXPECT_FALSE(Deposer(texte));
    Glissement deplacement{QString()};
    deplacement.donnees.clear();
    deplacement.donnees.setUrls({Fichier("a.bmp")});
    deplacement.actions = Qt::MoveAction;
    EXPECT_FALSE(Deposer(deplacement));
    EXPECT_EQ(form.ImgTag(), "");
}

TEST_F(FrmEditEntreeImageTest, UnderADialogNothingIsTaken)
{
    Editer(1);
    QDialog dessus(&form);
    dessus.setModal(true);
    dessus.show();
    EXPECT_FALSE(Deposer({Fichier("a.bmp")}));
    dessus.close();
    EXPECT_TRUE(Deposer({Fichier("a.bmp")}));
}

TEST_F(FrmEditEntreeImageTest, AfterTheEditorWasClosedNothingComesOfADrop)
{
    Editer(1);
    Glissement glissement{QString()};
    glissement.donnees.clear();
    glissement.donnees.setUrls({Fichier("a.bmp")});
    EXPECT_TRUE(glissement.Deposer(Img(), Img().rect().center()));
    form.close();
    QCoreApplication::processEvents();
    EXPECT_EQ(Images(), QStringList());
}

TEST_F(FrmEditEntreeImageTest, TheZoneShowsWhereItCanBeDropped)
{
    Editer(1);
    const QImage avant = Img().grab().toImage();
    Glissement glissement{QString()};
    glissement.donnees.clear();
    glissement.donnees.setUrls({Fichier("a.bmp")});
    EXPECT_TRUE(glissement.Entrer(Img(), {5, 5}));
    EXPECT_NE(Img().grab().toImage(), avant);
    glissement.Sortir(Img());
    EXPECT_EQ(Img().grab().toImage(), avant);
    EXPECT_TRUE(glissement.Entrer(Img(), {5, 5}));
    glissement.donnees.setUrls({QUrl(u"https://exemple.invalid/a.jpg"_s)});
    EXPECT_TRUE(glissement.Lacher(Img(), {5, 5}));
    QCoreApplication::processEvents();
    EXPECT_EQ(Img().grab().toImage(), avant);
}

TEST_F(FrmEditEntreeImageTest, TheKeysThatPasteTakeTheImageOfTheClipboard)
{
    Editer(1);
    Img().setFocus();
    QApplication::clipboard()->setImage(Dessin(Qt::red));
    Touche(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form.ImgTag(), "image.jpg");
    EXPECT_GT(Couleur().red(), 240);
    QApplication::clipboard()->setImage(Dessin(Qt::blue));
    Touche(Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(form.ImgTag(), "0image.jpg");
    EXPECT_GT(Couleur().blue(), 240);
}

TEST_F(FrmEditEntreeImageTest, AFileThatWasCopiedIsPasted)
{
    Editer(1);
    Img().setFocus();
    auto* donnees = new QMimeData;
    donnees->setUrls({Fichier("pochette.bmp")});
    Copier(donnees);
    Touche(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form.ImgTag(), "pochette.bmp");
}

TEST_F(FrmEditEntreeImageTest, AClipboardWithoutAnImageIsTold)
{
    Editer(1);
    Img().setFocus();
    QApplication::clipboard()->setText(u"Abbey Road"_s);
    Touche(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(messages.Cles(), QStringList("msgRienAColler"));
    EXPECT_EQ(messages.Affiches().first().message.texte, u"Le presse-papiers ne contient pas d'image."_s);
    EXPECT_EQ(form.ImgTag(), "");
}

TEST_F(FrmEditEntreeImageTest, InTheFieldTheSameKeysPasteText)
{
    Editer(1);
    auto* donnees = new QMimeData;
    donnees->setText(u" Road"_s);
    donnees->setImageData(Dessin(Qt::red));
    Copier(donnees);
    Touche(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form.Valeur(1), "Dummy Road");
    EXPECT_EQ(form.ImgTag(), "");
}

TEST_F(FrmEditEntreeImageTest, TheMenuPastesToo)
{
    Editer(1);
    QApplication::clipboard()->setImage(Dessin(Qt::red));
    QMenu& menu = Menu();
    ASSERT_EQ(menu.actions().size(), 2);
    EXPECT_EQ(menu.actions().at(0)->text(), "&Changer l'image...");
    EXPECT_EQ(menu.actions().at(1)->text(), "C&oller l'image");
    QTest::keyClick(&menu, Qt::Key_O);
    EXPECT_EQ(form.ImgTag(), "image.jpg");
}

TEST_F(FrmEditEntreeImageTest, TheMenuPastesOnlyWhatIsAnImage)
{
    Editer(1);
    QApplication::clipboard()->setText(u"Abbey Road"_s);
    QMenu& menu = Menu();
    EXPECT_FALSE(menu.actions().at(1)->isEnabled());
    menu.close();
}

TEST_F(FrmEditEntreeImageTest, TheMenuAsksForAnImageOfTheCategory)
{
    EcrireImage("choisie.bmp", Qt::red);
    form.DemanderImage = [](const QString&, const QString&) { return u"choisie.bmp"_s; };
    Editer(1);
    QTest::keyClick(&Menu(), Qt::Key_C);
    EXPECT_EQ(form.ImgTag(), "choisie.bmp");
}

TEST_F(FrmEditEntreeImageTest, AHintTellsOfIt)
{
    EXPECT_EQ(Img().toolTip(), u"Une image peut aussi être déposée ici, ou collée avec Ctrl+V."_s);
}
