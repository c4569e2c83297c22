#include "output/frmStat.h"

#include "support/Impression.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(FrmStat, ShowsTheReportAndCloses)
{
    DocumentDeTest d;
    d.doc.SetCheminReel(u"/disques/mes disques.qrt"_s);
    MettreColonnes(d.table, {"Titre", "Prêté"});
    AjouterEntrees(d.table, {{"Aja", "Ida - 01/02/2026"}, {"Blue", ""}});
    d.doc.IndexColPrete = 2;
    frmStat form(d.doc);
    form.show();
    EXPECT_EQ(form.windowTitle(), "Statistiques");
    const auto& texte = *form.findChild<QPlainTextEdit*>("Text1");
    EXPECT_TRUE(texte.isReadOnly());
    EXPECT_EQ(texte.toPlainText(),
              u"Zelvane v2.2 by Morvenal\n^^^^^^^^^^^^^^\n___________________________________\n"
              u"mes disques.qrt\n___________________________________\n\n[Total]\n"
              u"  Nombre d'entrées(sans dépendance):2\n  Nombre d'entrées pretées(dépendance):1\n\n"
              u"[Ida]\n  Nb entrées prêtées(dépendance):1\n  Date plus vieux prêt:01/02/2026\n"
              u"  Date du plus récent:01/02/2026\n"_s);
    auto& fermer = *form.findChild<QPushButton*>("Command1");
    EXPECT_FALSE(fermer.icon().isNull());
    QTest::mouseClick(&fermer, Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
}
