#include "cli/Json.h"

#include "support/Impression.h"

#include <gtest/gtest.h>

TEST(Json, KeepsTheOrderOfKeysAndSeparatesWithCommas)
{
    Json json;
    json.Debut('{').Cle("z").Nombre(-1).Cle("a").Debut('[').Texte("x").Booleen(true).Debut('{').Fin('}').Fin(']');
    json.Cle("v").Debut('[').Fin(']').Cle("w").NombreTel("1.5").Fin('}');
    EXPECT_EQ(json.Prendre(), R"({"z":-1,"a":["x",true,{}],"v":[],"w":1.5})");
}

TEST(Json, EscapesWhatJsonForbids)
{
    Json json;
    json.Texte(QStringLiteral("\"\\\n\r\t\u0001é\u0081𝄞"));
    EXPECT_EQ(json.Prendre(), QByteArray("\"\\\"\\\\\\n\\r\\t\\u0001é\xC2\x81𝄞\""));
}

TEST(Json, TakesTextsThatAreUtf8AlreadyAsOthers)
{
    for (const char* texte : {"", "abc", "\"", "a\"b\\c\n", "\x01", "é\x1F𝄞"}) {
        Json deTexte;
        deTexte.Texte(QString::fromUtf8(texte));
        Json deOctets;
        deOctets.TexteUtf8(texte);
        EXPECT_EQ(deOctets.Prendre(), deTexte.Prendre()) << texte;
    }
}

TEST(Json, ComesInPieces)
{
    Json json;
    json.Debut('[').Nombre(1);
    EXPECT_EQ(json.Taille(), 2);
    EXPECT_EQ(json.Prendre(), "[1");
    EXPECT_EQ(json.Taille(), 0);
    json.Nombre(2).Fin(']');
    EXPECT_EQ(json.Prendre(), ",2]");
}
