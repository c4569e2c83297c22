// The window of one document inside the frame, for tests of what a user sees and does.
#pragma once

#include "base/Const_Vrac.h"
#include "base/Options.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "catalogue/documents/Sauver.h"
#include "images/PanneauImage.h"
#include "shell/Form1.h"
#include "shell/MDIForm1.h"
#include "support/FermeModales.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QMenuBar>
#include <QTest>

#include <gtest/gtest.h>

class Form1Test : public testing::Test
{
protected:
    void SetUp() override
    {
        cadre.show();
        cadre.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&cadre));
    }
    void TearDown() override { EnCoursDeSauvegarde = false; }

    Form1& Ouvrir(const QString& nom = QStringLiteral("disques.qrt"),
                  const QList<QByteArray>& entrees = {"Abbey Road|", "Dummy|", "Takk|"})
    {
        TexteDeCatalogue texte;
        texte.colonnes = {"Titre|2880|", "Artiste|1440|", "Prêté|600|"};
        texte.entrees = entrees;
        EXPECT_TRUE(OuvrirFichier(cadre, dossier.Ecrire(nom, texte.Texte()), TypeQrt2, true));
        QCoreApplication::processEvents();
        return dynamic_cast<Form1&>(*cadre.Documents().back());
    }
    static QAction& Commande(const Form1& fenetre, const QString& nom)
    {
        auto* commande = fenetre.findChild<QAction*>(nom);
        EXPECT_TRUE(commande) << nom.toStdString();
        return *commande;
    }
    static PanneauImage& Img(const Form1& fenetre) { return *fenetre.findChild<PanneauImage*>(QStringLiteral("Img")); }
    static QString Panneau(const Form1& fenetre, int numero)
    {
        return fenetre.findChild<QLabel*>(QStringLiteral("StatusBar1_%1").arg(numero))->text();
    }
    static void CliquerTitre(const Form1& fenetre, int colonne)
    {
        QHeaderView& titres = *fenetre.ListView1().horizontalHeader();
        const QPoint place(titres.sectionViewportPosition(colonne - 1) + 20, titres.height() / 2);
        QTest::mouseClick(titres.viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QCoreApplication::processEvents();
    }
    static QPoint Milieu(const Form1& fenetre, int ligne, int colonne = 1)
    {
        const VueTable& vue = fenetre.ListView1();
        return vue.visualRect(vue.model()->index(ligne - 1, colonne - 1)).center();
    }
    static void CliquerEntree(const Form1& fenetre, int ligne, Qt::MouseButton bouton = Qt::LeftButton)
    {
        QTest::mouseClick(fenetre.ListView1().viewport(), bouton, Qt::NoModifier, Milieu(fenetre, ligne));
    }
    static QStringList Titres(const Form1& fenetre) { return ColonneDe(*fenetre.myqrt.MyLV, 1); }
    /// Gives an entry a picture of one colour in the document's folder.
    static void MettreImage(Form1& fenetre, int ligne, const QString& nom, QSize taille, const QColor& couleur)
    {
        QImage image(taille, QImage::Format_RGB32);
        image.fill(couleur);
        ASSERT_TRUE(image.save(fenetre.myqrt.TmpFolder + nom, "PNG"));
        fenetre.myqrt.MyLV->ListItems(ligne).SetTag(nom);
    }
    static QColor CouleurDImg(const Form1& fenetre)
    {
        const QImage image = Img(fenetre).Image().toImage();
        return image.isNull() ? QColor() : image.pixelColor(image.width() / 2, image.height() / 2);
    }
    QStringList BarreDuCadre() const
    {
        QStringList menus;
        for (const QAction* menu : cadre.menuBar()->actions())
            menus.append(menu->text());
        return menus;
    }
    /// Closes the menu that has popped up, and tells its name; empty when none has.
    static QString MenuSurgi()
    {
        QWidget* menu = QApplication::activePopupWidget();
        const QString nom = menu ? menu->objectName() : QString();
        if (menu)
            menu->close();
        return nom;
    }
    static void Passer() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    DossierDeTest dossier;
    FileDeReponses reponses;
    FileDeFichiers fichiers;
    MDIForm1 cadre;
};
