#include "platform/AppelTardif.h"

#include "support/Impression.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

class Composant : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString Texte READ Texte)
    Q_PROPERTY(int Nombre READ Nombre)
    Q_PROPERTY(short Court READ Court)
    Q_PROPERTY(qulonglong Long READ Long)
    Q_PROPERTY(float Reel READ Reel)
    Q_PROPERTY(QStringList Liste READ Liste)
    Q_PROPERTY(QString Leve READ Leve)

public:
    QString Texte() const { return u"oui"_s; }
    int Nombre() const { return 7; }
    short Court() const { return -3; }
    qulonglong Long() const { return 18446744073709551615U; }
    float Reel() const { return 2.5F; }
    QStringList Liste() const { return {}; }
    QString Leve() const { throw 1; }

    Q_INVOKABLE void Remplir(QString& texte) { texte += u" change"_s; }
    Q_INVOKABLE void Lire(const QString& texte) { lu = texte; }
    Q_INVOKABLE void Prendre(QObject*& objet, int nombre)
    {
        lu = QString::number(nombre);
        objet = this;
    }
    Q_INVOKABLE void Garder(QObject* objet, int& nombre)
    {
        objet = nullptr;
        nombre = objet ? 0 : 9;
    }
    Q_INVOKABLE void Casser() { throw std::runtime_error("pourquoi"); }
    Q_INVOKABLE void Jeter() { throw 1; }
    Q_INVOKABLE QString Rendre() { return lu = u"rendu"_s; }

    QString lu;
};

} // namespace

TEST(AppelTardif, ReferencesComeBackAndValuesDoNot)
{
    Composant composant;
    QString texte = u"texte"_s;
    EXPECT_EQ(AppelerTardif(composant, "Remplir", {texte}), "");
    EXPECT_EQ(texte, "texte change");
    EXPECT_EQ(AppelerTardif(composant, "Lire", {texte}), "");
    EXPECT_EQ(composant.lu, "texte change");
    QObject* objet = nullptr;
    int nombre = 5;
    EXPECT_EQ(AppelerTardif(composant, "Prendre", {objet, nombre}), "");
    EXPECT_EQ(objet, &composant);
    EXPECT_EQ(composant.lu, "5");
    EXPECT_EQ(AppelerTardif(composant, "Garder", {objet, nombre}), "");
    EXPECT_EQ(objet, &composant) << "it was given by value";
    EXPECT_EQ(nombre, 9);
    EXPECT_EQ(AppelerTardif(composant, "Rendre"), "") << "a result that nobody asks for";
    EXPECT_EQ(composant.lu, "rendu");
}

TEST(AppelTardif, WhatIsMissingTakesOtherArgumentsOrThrowsIsAFailure)
{
    Composant composant;
    QString texte;
    int nombre = 0;
    EXPECT_EQ(AppelerTardif(composant, "Absent"), "Absent ?");
    EXPECT_EQ(AppelerTardif(composant, "Remplir"), "Remplir ?");
    EXPECT_EQ(AppelerTardif(composant, "Remplir", {nombre}), "Remplir ?");
    EXPECT_EQ(AppelerTardif(composant, "Remplir", {texte, texte}), "Remplir ?");
    EXPECT_EQ(AppelerTardif(composant, "Casser"), "Casser : pourquoi");
    EXPECT_EQ(AppelerTardif(composant, "Jeter"), "Jeter");
    EXPECT_EQ(AppelerTardif(composant, "objectNameChanged", {texte}), "objectNameChanged ?") << "a signal";
}

TEST(AppelTardif, APropertyIsATextOrANumber)
{
    const Composant composant;
    EXPECT_EQ(LireTardif(composant, "Texte"), u"oui"_s);
    EXPECT_EQ(LireTardif(composant, "Nombre"), u"7"_s);
    EXPECT_EQ(LireTardif(composant, "Court"), u"-3"_s);
    EXPECT_EQ(LireTardif(composant, "Long"), u"18446744073709551615"_s);
    EXPECT_EQ(LireTardif(composant, "Reel"), u"2.5"_s);
    EXPECT_EQ(LireTardif(composant, "Absente"), std::nullopt);
    EXPECT_EQ(LireTardif(composant, "Liste"), std::nullopt);
    EXPECT_EQ(LireTardif(composant, "Leve"), std::nullopt);
}

#include "AppelTardifTest.moc"
