#include "platform/Association.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>
#include <QtEndian>

namespace {

/// Quotes an argument of a desktop entry's command line. The value of the key knows escapes too, hence the doubled
/// backslashes.
QString ArgumentExec(const QString& argument)
{
    QString texte;
    for (const QChar c : argument) {
        if (c == u'"' || c == u'`' || c == u'$')
            texte += QStringLiteral("\\\\");
        else if (c == u'\\')
            texte += QStringLiteral("\\\\\\");
        else if (c == u'%')
            texte += u'%';
        texte += c;
    }
    return u'"' + texte + u'"';
}

QByteArray EntreeBureau(const QString& executable)
{
    const QString entree = QStringLiteral("[Desktop Entry]\n"
                                          "Type=Application\n"
                                          "Name=Zelvane\n"
                                          "Comment=Catalogue manager for personal collections\n"
                                          "Comment[fr]=Gestion de catalogues de collections\n"
                                          "Comment[de]=Kataloge von Sammlungen verwalten\n"
                                          "Comment[es]=Gestión de catálogos de colecciones\n"
                                          "Exec=%1 %f\n"
                                          "Icon=zelvane\n"
                                          "Terminal=false\n"
                                          "Categories=Office;Database;\n"
                                          "MimeType=application/x-zelvane-qrt;\n");
    return QString(entree).replace("%1", ArgumentExec(executable)).toUtf8();
}

/// An archive whose first file is the catalogue text, or the bare text, is told by its bytes; others by their name.
QByteArray TypeMime()
{
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<mime-info xmlns="http://www.freedesktop.org/standards/shared-mime-info">
  <mime-type type="application/x-zelvane-qrt">
    <comment>Zelvane document</comment>
    <comment xml:lang="fr">Document Zelvane</comment>
    <comment xml:lang="de">Zelvane-Dokument</comment>
    <comment xml:lang="es">Documento de Zelvane</comment>
    <sub-class-of type="application/zip"/>
    <icon name="application-x-zelvane-qrt"/>
    <glob pattern="*.qrt"/>
    <magic priority="60">
      <match type="string" offset="0" value="PK\003\004">
        <match type="string" offset="30" value="Zelvane.qrt"/>
      </match>
      <match type="string" offset="0" value="[FileInfo]\r\nType=QRT FILE"/>
    </magic>
  </mime-type>
</mime-info>
)";
}

QByteArray LireTout(const QString& chemin)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
}

/// True when the file was written.
bool EcrireSiDifferent(const QString& chemin, const QByteArray& contenu)
{
    if (LireTout(chemin) == contenu)
        return false;
    QDir().mkpath(QFileInfo(chemin).path());
    QSaveFile fichier(chemin);
    return fichier.open(QIODevice::WriteOnly) && fichier.write(contenu) == contenu.size() && fichier.commit();
}

/// Desktops read a cache of these folders; their own tools bring it up to date.
void Rafraichir(const QString& outil, const QString& dossier)
{
    const QString programme = QStandardPaths::findExecutable(outil);
    if (!programme.isEmpty())
        QProcess::startDetached(programme, {dossier});
}

} // namespace

void AssociationBureau::Enregistrer()
{
    const QString applications = m_lieux.donnees + "/applications";
    const QString mime = m_lieux.donnees + "/mime";
    for (const ImageIcone& image : ImagesPng(LireTout(m_lieux.icone))) {
        const QString dossier = m_lieux.donnees + QStringLiteral("/icons/hicolor/%1x%1/").arg(image.cote);
        EcrireSiDifferent(dossier + "apps/zelvane.png", image.png);
        EcrireSiDifferent(dossier + "mimetypes/application-x-zelvane-qrt.png", image.png);
    }
    if (EcrireSiDifferent(mime + "/packages/zelvane.xml", TypeMime()))
        Rafraichir("update-mime-database", mime);
    if (EcrireSiDifferent(applications + "/zelvane.desktop", EntreeBureau(m_lieux.executable)))
        Rafraichir("update-desktop-database", applications);
}

QList<ImageIcone> ImagesPng(const QByteArray& ico)
{
    // A header of six bytes (0, 1, number of images), then sixteen bytes for each: width and height (0 stands for
    // 256), ..., size and offset of the image's bytes.
    constexpr qsizetype enTete = 6;
    constexpr qsizetype fiche = 16;
    const QByteArray signaturePng("\x89PNG\r\n\x1a\n", 8);
    const auto nombre16 = [&](qsizetype i) { return qFromLittleEndian<quint16>(ico.constData() + i); };
    const auto nombre32 = [&](qsizetype i) { return qFromLittleEndian<quint32>(ico.constData() + i); };

    QList<ImageIcone> images;
    if (ico.size() < enTete || nombre16(0) != 0 || nombre16(2) != 1)
        return images;
    for (qsizetype i = 0; i < nombre16(4); ++i) {
        const qsizetype debut = enTete + i * fiche;
        if (debut + fiche > ico.size())
            break;
        const uchar largeur = static_cast<uchar>(ico[debut]);
        const uchar hauteur = static_cast<uchar>(ico[debut + 1]);
        const qsizetype taille = nombre32(debut + 8);
        const qsizetype place = nombre32(debut + 12);
        if (largeur != hauteur || place > ico.size() || taille > ico.size() - place)
            continue;
        const QByteArray image = ico.mid(place, taille);
        if (image.startsWith(signaturePng))
            images.append({largeur == 0 ? 256 : largeur, image});
    }
    return images;
}
