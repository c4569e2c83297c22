#include "kit/TexteDInfobulle.h"

#include <QTextDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(TexteDInfobulle, WhatIsNoHtmlStaysAsItIs)
{
    for (const QString& texte : {u""_s, u"Titre"_s, u"a < b & c"_s, u"/dossier/disques.qrt"_s})
        EXPECT_EQ(TexteDInfobulle(texte), texte);
}

TEST(TexteDInfobulle, WhatLooksLikeHtmlIsShownWithItsSigns)
{
    for (const QString& texte : {u"<b>Titre</b>"_s, u"<img src=\"file:///dev/zero\">"_s, u"<i>a & b</i>"_s}) {
        QTextDocument montre;
        montre.setHtml(TexteDInfobulle(texte));
        EXPECT_EQ(montre.toPlainText(), texte);
    }
}
