// The language files in data/lang beside the sources: each has every text, and nothing of a text gets lost.
#include "architecture/Inclusions.h"
#include "architecture/TextesDesFormes.h"
#include "architecture/TextesDesMessages.h"
#include "extensions/langue/modLang.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A value that is longer is cut when it is read.
constexpr qsizetype ValeurMax = 1024;

struct Langue
{
    QString nom;
    std::map<QString, std::map<QString, QString>> sections; ///< values as they stand in the file
    QStringList doubles;                                    ///< keys that stand there twice
};

Langue LireLangue(const QString& nom, const QByteArray& octets)
{
    Langue langue{nom, {}, {}};
    QString section;
    for (const QString& ligne : QString::fromLatin1(octets).split(u"\r\n"_s)) {
        const qsizetype egal = ligne.indexOf(u'=');
        if (ligne.startsWith(u'[') && ligne.endsWith(u']'))
            section = ligne.sliced(1).chopped(1);
        else if (egal > 0 && !langue.sections[section].try_emplace(ligne.left(egal), ligne.mid(egal + 1)).second)
            langue.doubles.append(section + u'/' + ligne.left(egal));
    }
    return langue;
}

std::vector<Langue> Langues()
{
    std::vector<Langue> langues;
    const QDir dossier(QStringLiteral(ZELVANE_LANGUES));
    const QStringList noms = dossier.entryList({u"*.ini"_s}, QDir::Files);
    langues.reserve(noms.size());
    for (const QString& nom : noms) {
        QFile fichier(dossier.filePath(nom));
        if (fichier.open(QIODevice::ReadOnly))
            langues.push_back(LireLangue(nom, fichier.readAll()));
    }
    return langues;
}

QString Valeur(const Langue& langue, const QString& section, const QString& cle)
{
    const auto trouvee = langue.sections.find(section);
    if (trouvee == langue.sections.end())
        return {};
    const auto valeur = trouvee->second.find(cle);
    return valeur == trouvee->second.end() ? QString() : valeur->second;
}

/// What a translation has to keep: placeholders, combinations of keys, whatever a language calls the key, and line
/// breaks, in any order.
QStringList Reperes(QString texte)
{
    texte.replace(u"Strg+"_s, u"Ctrl+"_s).replace(u"Control+"_s, u"Ctrl+"_s);
    static const QRegularExpression repere(uR"re(%\w+%|%\d|(?:Ctrl|Alt)\+\w|\r|\n)re"_s);
    QStringList reperes;
    for (const auto& trouve : repere.globalMatch(texte))
        reperes.append(trouve.captured());
    reperes.sort();
    return reperes;
}

bool AMnemonique(const QString& texte)
{
    return QString(texte).remove(u"&&"_s).contains(u'&');
}

/// What is wrong with a value, in words; empty when nothing is.
QString Defaut(const QString& francais, const QString& valeur)
{
    const QString texte = DecoderTexte(valeur);
    if (texte.isEmpty())
        return u"is missing"_s;
    if (valeur.size() > ValeurMax)
        return u"is cut when it is read"_s;
    if (Reperes(texte) != Reperes(francais))
        return u"lost a placeholder, a key or a line break"_s;
    if (AMnemonique(texte) != AMnemonique(francais))
        return u"has not the mnemonic"_s;
    return {};
}

/// All texts that a language has to hold: section, key, French text.
std::map<QString, std::map<QString, QString>> TextesDuProgrammeEntier()
{
    const QString sources = QStringLiteral(ZELVANE_SOURCES);
    std::map<QString, std::map<QString, QString>> textes;
    for (const auto& [section, cles] : TextesDuDossier(sources))
        for (const auto& [cle, texte] : cles)
            textes[section][cle] = texte.francais;
    MessagesDesSources messages;
    for (const QString& dossier : {sources, QStringLiteral(ZELVANE_PLUGINS)}) {
        for (const QString& nom : FichiersDe({dossier, {}, {}})) {
            QFile fichier(dossier + u'/' + nom);
            if (fichier.open(QIODevice::ReadOnly))
                LireMessages(QString::fromUtf8(fichier.readAll()), messages);
        }
    }
    for (const auto& [cle, francais] : messages.textes)
        textes[u"other"_s][cle] = QString(francais.constFirst()).replace(u"\\n"_s, u"\n"_s).replace(u"\\\""_s, u"\""_s);
    return textes;
}

QStringList DefautsDe(const Langue& langue, const std::map<QString, std::map<QString, QString>>& textes)
{
    QStringList defauts;
    for (const auto& [section, cles] : textes)
        for (const auto& [cle, francais] : cles)
            if (const QString defaut = Defaut(francais, Valeur(langue, section, cle)); !defaut.isEmpty())
                defauts.append(u"%1 [%2] %3 %4: \"%5\""_s.arg(langue.nom, section, cle, defaut, francais));
    return defauts;
}

/// Keys that the program never asks for.
QStringList Inconnues(const Langue& langue, const std::map<QString, std::map<QString, QString>>& textes)
{
    QStringList inconnues;
    for (const auto& [section, cles] : langue.sections)
        for (const auto& [cle, valeur] : cles)
            if (section != "Traducteur"_L1 && (!textes.contains(section) || !textes.at(section).contains(cle)))
                inconnues.append(u"%1 [%2] %3"_s.arg(langue.nom, section, cle));
    return inconnues;
}

std::string EnLignes(const QStringList& lignes)
{
    return lignes.join(u'\n').toStdString();
}

TEST(TextesDesFormes, HaveTheKeysByWhichTheyAreAskedFor)
{
    TextesDesFormes formes;
    LireUi(R"(<ui><widget class="QDialog" name="frmA"><property name="windowTitle"><string>Titre</string></property>
        <widget class="QPushButton" name="bt_0"><property name="text"><string>&amp;Un</string></property>
        <property name="toolTip"><string>Aide</string></property>
        <property name="x"><string notr="true">y</string></property></widget>
        <widget class="QLineEdit" name="t"><property name="text"><string>abc</string></property>
        <property name="accessibleName"><string>abc</string></property></widget>
        <widget class="QWidget" name="w"><property name="accessibleName"><string>Nom</string></property>
        <property name="accessibleDescription"><string>Description</string></property></widget>
        <widget class="QLabel" name="n"><property name="text"><string>0 / 0</string></property></widget>
        <widget class="QToolBar" name="b"><addaction name="s"/><addaction name="up"/></widget>
        <action name="up"><property name="text"><string>Monter</string></property>
        <property name="toolTip"><string>Monter</string></property></action>
        <widget class="QTreeWidget" name="l"><column><property name="text"><string>Colonne</string></property></column></widget>
        <widget class="QMenu" name="Menu"><property name="title"><string>Menu</string></property></widget>
        </widget></ui>)",
           formes);
    std::map<QString, QString> lus;
    for (const auto& [cle, texte] : formes.at(u"frmA"_s))
        lus[cle] = texte.francais;
    EXPECT_EQ(lus, (std::map<QString, QString>{{u"Caption"_s, u"Titre"_s},
                                               {u"bt_0_C"_s, u"&Un"_s},
                                               {u"bt_0_TT"_s, u"Aide"_s},
                                               {u"t_T"_s, u"abc"_s},
                                               {u"b_TT_2"_s, u"Monter"_s},
                                               {u"w_A"_s, u"Nom"_s},
                                               {u"w_AD"_s, u"Description"_s}}));
}

TEST(TextesDesFormes, MenusAndBarsOfTheProgramAreRead)
{
    const TextesDesFormes formes = TextesDuDossier(QStringLiteral(ZELVANE_SOURCES));
    EXPECT_EQ(formes.at(u"Form1"_s).at(u"mOuvrir_C"_s).francais, u"&Ouvrir"_s);
    EXPECT_EQ(formes.at(u"Form1"_s).at(u"mVoir_C"_s).francais, u"&Voir l'entrée"_s);
    EXPECT_EQ(formes.at(u"Form1"_s).at(u"mNouveau_C"_s).groupe, formes.at(u"Form1"_s).at(u"mOuvrir_C"_s).groupe);
    EXPECT_EQ(formes.at(u"MDIForm1"_s).at(u"Toolbar1_TT_16"_s).francais, u"Afficher l'aide"_s);
    EXPECT_EQ(formes.at(u"MDIForm1"_s).at(u"Toolbar2_TT_5"_s).francais, u"Editer catégorie"_s);
    for (const auto& [section, textes] : formes)
        for (const auto& [cle, texte] : textes)
            EXPECT_FALSE(texte.francais.isEmpty()) << section.toStdString() << ' ' << cle.toStdString();
}

TEST(TextesDesFormes, AFormThatStaysInFrenchHasNone)
{
    const TextesDesFormes formes = TextesDuDossier(QStringLiteral(ZELVANE_SOURCES));
    EXPECT_FALSE(formes.contains(u"frmMail"_s));
    EXPECT_TRUE(formes.contains(u"frmPreter"_s));
}

TEST(TextesDesFormes, OneMnemonicForTwoCaptionsOfAGroupIsTold)
{
    const TextesDesFormes formes{{u"f"_s,
                                  {{u"a"_s, {u"&Oui"_s, u"g"_s}},
                                   {u"b"_s, {u"N&on"_s, u"g"_s}},
                                   {u"c"_s, {u"C&&&o"_s, u"h"_s}},
                                   {u"d"_s, {u"&o"_s, QString()}}}}};
    const auto texte = [&](const QString& section, const QString& cle) { return formes.at(section).at(cle).francais; };
    EXPECT_EQ(EnLignes(MnemoniquesDoubles(formes, texte)), R"([f] b: "&Oui" and "N&on")");
}

TEST(Langues, ALostTextPlaceholderOrMnemonicIsTold)
{
    EXPECT_EQ(Defaut(u"un %1"_s, u"one %1"_s), QString());
    EXPECT_EQ(Defaut(u"un"_s, QString()), u"is missing"_s);
    EXPECT_EQ(Defaut(u"un"_s, QString(1025, u'a')), u"is cut when it is read"_s);
    EXPECT_NE(Defaut(u"%1 et %2"_s, u"%1 and %1"_s), QString());
    EXPECT_NE(Defaut(u"un\ndeux"_s, u"one two"_s), QString());
    EXPECT_EQ(Defaut(u"un\ndeux"_s, u"one\\ftwo"_s), QString());
    EXPECT_NE(Defaut(u"Coller (Ctrl+V)"_s, u"Paste"_s), QString());
    EXPECT_EQ(Defaut(u"Coller (Ctrl+V)"_s, u"Einfügen (Strg+V)"_s), QString());
    EXPECT_NE(Defaut(u"Coller (Ctrl+V)"_s, u"Einfügen (Strg+E)"_s), QString());
    EXPECT_NE(Defaut(u"&Oui"_s, u"Yes"_s), QString());
    EXPECT_NE(Defaut(u"Oui"_s, u"&Yes"_s), QString());
}

TEST(Langues, AKeyThatNobodyAsksForIsTold)
{
    const Langue langue = LireLangue(u"x.ini"_s, "[Traducteur]\r\nNom=A\r\n[other]\r\nmsg1=a\r\nmsg0=b\r\nmsg0=c\r\n");
    EXPECT_EQ(EnLignes(Inconnues(langue, {{u"other"_s, {{u"msg1"_s, u"un"_s}}}})), "x.ini [other] msg0");
    EXPECT_EQ(EnLignes(langue.doubles), "other/msg0");
}

TEST(Langues, FrenchHasEachMnemonicOnce)
{
    const TextesDesFormes formes = TextesDuDossier(QStringLiteral(ZELVANE_SOURCES));
    const auto texte = [&](const QString& section, const QString& cle) { return formes.at(section).at(cle).francais; };
    EXPECT_EQ(EnLignes(MnemoniquesDoubles(formes, texte)), "");
}

TEST(Langues, AreThoseThatTheProgramComesWith)
{
    QStringList noms;
    for (const Langue& langue : Langues()) {
        noms.append(langue.nom);
        EXPECT_EQ(langue.sections.count(u"other"_s), 1U) << langue.nom.toStdString();
    }
    EXPECT_EQ(noms, QStringList({u"deutsch.ini"_s, u"english.ini"_s, u"espanol.ini"_s}));
}

TEST(Langues, EachHasEveryTextOfTheProgramAndNoOther)
{
    const auto textes = TextesDuProgrammeEntier();
    for (const Langue& langue : Langues()) {
        EXPECT_EQ(EnLignes(DefautsDe(langue, textes)), "");
        EXPECT_EQ(EnLignes(Inconnues(langue, textes)), "");
        EXPECT_EQ(EnLignes(langue.doubles), "") << langue.nom.toStdString();
    }
}

TEST(Langues, EachHasEachMnemonicOnce)
{
    const TextesDesFormes formes = TextesDuDossier(QStringLiteral(ZELVANE_SOURCES));
    for (const Langue& langue : Langues()) {
        const auto texte = [&](const QString& section, const QString& cle) { return Valeur(langue, section, cle); };
        EXPECT_EQ(EnLignes(MnemoniquesDoubles(formes, texte)), "") << langue.nom.toStdString();
    }
}

TEST(Langues, EveryFormIsOpenedInEachOfThem)
{
    QString essais;
    for (const QString& nom : {u"PolicesTest.cpp"_s, u"CadreEnLanguesTest.cpp"_s, u"CadreEnFenetre.h"_s}) {
        QFile fichier(QStringLiteral(ZELVANE_TESTS) + u"/shell/"_s + nom);
        ASSERT_TRUE(fichier.open(QIODevice::ReadOnly)) << nom.toStdString();
        essais += QString::fromUtf8(fichier.readAll());
    }
    QDirIterator formes(QStringLiteral(ZELVANE_SOURCES), {u"*.ui"_s}, QDir::Files, QDirIterator::Subdirectories);
    ASSERT_TRUE(formes.hasNext());
    QStringList manquantes;
    while (formes.hasNext()) {
        const QString forme = QFileInfo(formes.next()).completeBaseName();
        const QRegularExpression ouverte(uR"re((?:make_unique|findChild)<%1\*?>|\b%1&? \w+[;(=])re"_s.arg(forme));
        if (!essais.contains(ouverte))
            manquantes.append(forme);
    }
    EXPECT_EQ(manquantes, QStringList());
}

} // namespace
