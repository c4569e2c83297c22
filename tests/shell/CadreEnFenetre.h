// The frame on the offscreen screen, for tests of what a user sees and does.
#pragma once

#include "base/Const_Vrac.h"
#include "base/Options.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "shell/BandeOnglets.h"
#include "shell/Form1.h"
#include "shell/MDIForm1.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"

#include <QApplication>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

class CadreEnFenetre : public testing::Test
{
protected:
    /// Loads and shows the frame; settings are made before.
    void Montrer()
    {
        cadre = std::make_unique<MDIForm1>();
        cadre->show();
        cadre->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(cadre.get()));
    }

    QString Fichier(const QString& nom)
    {
        TexteDeCatalogue texte;
        texte.entrees = {"Abbey Road|"};
        return dossier.Ecrire(nom, texte.Texte());
    }
    Form1& Ouvrir(const QString& nom)
    {
        EXPECT_TRUE(OuvrirFichier(*cadre, Fichier(nom), TypeQrt2, true)) << nom.toStdString();
        return Laisser(), dynamic_cast<Form1&>(*cadre->Documents().back());
    }
    /// Lets the events of the moment come.
    static void Laisser()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    BandeOnglets& Onglets() const { return *cadre->findChild<BandeOnglets*>(QStringLiteral("TabStrip1")); }
    QMdiArea& Zone() const { return *cadre->findChild<QMdiArea*>(QStringLiteral("Fenetres")); }
    QAction& Menu(const QString& nom) const { return *cadre->findChild<QAction*>(nom, Qt::FindDirectChildrenOnly); }
    QAction& Recent(int index) const { return Menu(QStringLiteral("mRecent_%1").arg(index)); }
    QWidget& Barre(const QString& nom) const { return *cadre->findChild<QWidget*>(nom); }

    QStringList Titres() const
    {
        QStringList titres;
        for (int i = 1; i <= Onglets().count(); ++i)
            titres.append(Onglets().Titre(i));
        return titres;
    }
    /// Menus on show in the bar, by object name.
    QStringList MenusVisibles() const
    {
        QStringList noms;
        for (const QAction* action : cadre->menuBar()->actions()) {
            if (action->isVisible())
                noms.append(action->menu()->objectName());
        }
        return noms;
    }
    void CliquerOnglet(int numero, Qt::MouseButton bouton = Qt::LeftButton)
    {
        QTest::mouseClick(&Onglets(), bouton, {}, Onglets().tabRect(numero - 1).center());
        Laisser();
    }

    DossierDeTest dossier;
    FileDeReponses reponses;
    FileDeFichiers dialogues;
    std::unique_ptr<MDIForm1> cadre;
};

/// Object names and captions of a menu's items.
inline QStringList Captions(const QMenu& menu)
{
    QStringList captions;
    for (const QAction* action : menu.actions()) {
        if (!action->isSeparator())
            captions.append(action->objectName() + u'=' + action->text());
    }
    return captions;
}
