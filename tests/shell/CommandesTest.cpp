// The table of commands.
#include "shell/Commandes.h"

#include "kit/Icones.h"
#include "support/Impression.h"

#include <QKeySequence>
#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(TableDesCommandes, NoTwoRowsShareAKeyOrAShortcut)
{
    QSet<QString> cles, touches;
    for (const RangDeCommande& rang : TableDesCommandes()) {
        const QString cle = QString::fromUtf16(rang.cle);
        EXPECT_FALSE(cles.contains(cle)) << cle.toStdString();
        cles.insert(cle);
        if (!*rang.touches)
            continue;
        for (const QKeySequence& touche :
             QKeySequence::listFromString(QLatin1StringView(rang.touches), QKeySequence::PortableText)) {
            EXPECT_FALSE(touche.isEmpty()) << cle.toStdString();
            EXPECT_FALSE(touches.contains(touche.toString())) << cle.toStdString();
            touches.insert(touche.toString());
        }
    }
}

TEST(TableDesCommandes, EveryPictureIsThere)
{
    for (const RangDeCommande& rang : TableDesCommandes()) {
        const QString image = QLatin1StringView(rang.image);
        EXPECT_TRUE(image.isEmpty() || !Icone(image).isNull()) << image.toStdString();
    }
}

TEST(TableDesCommandes, KeysAreComparedExactly)
{
    EXPECT_TRUE(Rang(u"commentaire"));
    EXPECT_TRUE(Rang(u"commentaire "));
    EXPECT_NE(Rang(u"commentaire"), Rang(u"commentaire "));
    for (const QStringView cle : {u"Save"_s, u" save"_s, u"delcat"_s, QString()})
        EXPECT_FALSE(Rang(cle)) << cle.toString().toStdString();
}
