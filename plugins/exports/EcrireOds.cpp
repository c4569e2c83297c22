#include "EcrireOds.h"

#include "Brouillon.h"
#include "TexteUtf8.h"

#include <zip.h>

#include <algorithm>
#include <cstring>
#include <deque>

namespace {

constexpr zip_uint16_t PremierJour = 0x21; // 1 January 1980: the time of writing is no part of the content
constexpr zip_uint32_t Niveau = 1;         // the usual one takes 1.4 times as long for four fifths of the bytes

// ---- the small parts

QByteArray Manifeste()
{
    QByteArray xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<manifest:manifest"
                     " xmlns:manifest=\"urn:oasis:names:tc:opendocument:xmlns:manifest:1.0\""
                     " manifest:version=\"1.2\">\n<manifest:file-entry manifest:full-path=\"/\""
                     " manifest:version=\"1.2\""
                     " manifest:media-type=\"application/vnd.oasis.opendocument.spreadsheet\"/>\n";
    for (const char* nom : {"content.xml", "styles.xml", "meta.xml", "settings.xml"})
        xml +=
            QByteArray("<manifest:file-entry manifest:full-path=\"") + nom + "\" manifest:media-type=\"text/xml\"/>\n";
    return xml + "</manifest:manifest>\n";
}

QByteArray Styles()
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<office:document-styles"
           " xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\""
           " xmlns:style=\"urn:oasis:names:tc:opendocument:xmlns:style:1.0\" office:version=\"1.2\">\n"
           "<office:styles><style:style style:name=\"Default\" style:family=\"table-cell\"/></office:styles>\n"
           "</office:document-styles>\n";
}

QByteArray Meta(const QString& titre)
{
    QByteArray xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<office:document-meta"
                     " xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\""
                     " xmlns:meta=\"urn:oasis:names:tc:opendocument:xmlns:meta:1.0\""
                     " xmlns:dc=\"http://purl.org/dc/elements/1.1/\" office:version=\"1.2\">\n"
                     "<office:meta><meta:generator>Zelvane</meta:generator><dc:title>";
    AjouterXml(xml, titre);
    return xml + "</dc:title></office:meta>\n</office:document-meta>\n";
}

QByteArray Reglage(const char* nom, const char* type, const QString& valeur)
{
    QByteArray xml = QByteArray("<config:config-item config:name=\"") + nom + "\" config:type=\"" + type + "\">";
    AjouterXml(xml, valeur);
    return xml + "</config:config-item>";
}

/// The titles stay in sight when the sheets are scrolled.
QByteArray Reglages(const QStringList& feuilles)
{
    QByteArray xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<office:document-settings"
                     " xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\""
                     " xmlns:config=\"urn:oasis:names:tc:opendocument:xmlns:config:1.0\""
                     " xmlns:ooo=\"http://openoffice.org/2004/office\" office:version=\"1.2\">\n<office:settings>"
                     "<config:config-item-set config:name=\"ooo:view-settings\">"
                     "<config:config-item-map-indexed config:name=\"Views\"><config:config-item-map-entry>";
    xml += Reglage("ViewId", "string", QStringLiteral("view1"));
    xml += "<config:config-item-map-named config:name=\"Tables\">\n";
    for (const QString& feuille : feuilles) {
        xml += "<config:config-item-map-entry config:name=\"";
        AjouterXml(xml, feuille);
        xml += "\">" + Reglage("VerticalSplitMode", "short", QStringLiteral("2")) +
               Reglage("VerticalSplitPosition", "int", QStringLiteral("1")) +
               Reglage("ActiveSplitRange", "short", QStringLiteral("2")) +
               Reglage("PositionBottom", "int", QStringLiteral("1")) + "</config:config-item-map-entry>\n";
    }
    xml += "</config:config-item-map-named>" + Reglage("ActiveTable", "string", feuilles.first());
    return xml + "</config:config-item-map-entry></config:config-item-map-indexed></config:config-item-set>"
                 "</office:settings>\n</office:document-settings>\n";
}

// ---- the sheets, as the library asks for them

class SourceDeFeuilles
{
public:
    explicit SourceDeFeuilles(ContenuOds& contenu) : m_contenu(contenu), m_taille(contenu.Taille()) {}

    /// Why the library did not get all of it.
    Fin Etat() const { return m_contenu.Etat() == Fin::Faite ? m_etat : m_contenu.Etat(); }
    /// Nothing may be thrown through the library, which is C: what is, waits for Relancer.
    static zip_int64_t Servir(void* source, void* donnees, zip_uint64_t taille, zip_source_cmd_t commande)
    {
        auto& feuilles = *static_cast<SourceDeFeuilles*>(source);
        try {
            return feuilles.Repondre(donnees, taille, commande);
        } catch (...) {
            feuilles.m_leve = std::current_exception();
            return -1;
        }
    }
    void Relancer() const
    {
        if (m_leve)
            std::rethrow_exception(m_leve);
    }

private:
    zip_int64_t Repondre(void* donnees, zip_uint64_t taille, zip_source_cmd_t commande)
    {
        switch (commande) {
        case ZIP_SOURCE_SUPPORTS:
            return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                                                  ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, -1);
        case ZIP_SOURCE_OPEN:
            m_contenu.Recommencer();
            m_reste = {};
            m_lus = 0;
            return 0;
        case ZIP_SOURCE_READ:
            return Lire(static_cast<char*>(donnees), static_cast<qsizetype>(taille));
        case ZIP_SOURCE_STAT: {
            auto* etat = static_cast<zip_stat_t*>(donnees);
            zip_stat_init(etat);
            // With the size known ahead the entry needs no extension that not all readers have.
            etat->size = static_cast<zip_uint64_t>(m_taille);
            etat->valid = ZIP_STAT_SIZE;
            return sizeof(zip_stat_t);
        }
        case ZIP_SOURCE_ERROR: {
            const int erreurs[2] = {ZIP_ER_INTERNAL, 0};
            std::memcpy(donnees, erreurs, sizeof(erreurs));
            return sizeof(erreurs);
        }
        default:
            return 0;
        }
    }

    zip_int64_t Lire(char* place, qsizetype taille)
    {
        if (m_reste.isEmpty())
            m_reste = m_contenu.Suivant();
        // Values that changed since they were looked at may be longer or shorter.
        if (m_lus + m_reste.size() > m_taille || (m_reste.isEmpty() && m_lus != m_taille))
            m_etat = Fin::TableChangee;
        if (Etat() != Fin::Faite)
            return -1;
        const qsizetype lus = std::min(taille, m_reste.size());
        std::memcpy(place, m_reste.data(), static_cast<size_t>(lus));
        m_reste = m_reste.sliced(lus);
        m_lus += lus;
        return lus;
    }

    ContenuOds& m_contenu;
    int64_t m_taille;
    int64_t m_lus = 0;
    Fin m_etat = Fin::Faite;
    QByteArrayView m_reste;
    std::exception_ptr m_leve;
};

// ---- the package

class Paquetage
{
public:
    explicit Paquetage(const QByteArray& chemin)
    {
        zip_error_init(&m_erreur);
        int numero = 0;
        m_archive = zip_open(chemin.constData(), ZIP_CREATE | ZIP_TRUNCATE, &numero);
        if (!m_archive)
            zip_error_init_with_code(&m_erreur, numero);
    }
    ~Paquetage()
    {
        if (m_archive)
            zip_discard(m_archive);
        zip_error_fini(&m_erreur);
    }
    Paquetage(const Paquetage&) = delete;
    Paquetage& operator=(const Paquetage&) = delete;

    bool Ajouter(const char* nom, const QByteArray& contenu, zip_int32_t methode = ZIP_CM_DEFLATE)
    {
        const QByteArray& garde = m_contenus.emplace_back(contenu);
        return m_archive &&
               Ajouter(nom, zip_source_buffer(m_archive, garde.constData(), static_cast<zip_uint64_t>(garde.size()), 0),
                       methode);
    }
    bool Ajouter(const char* nom, SourceDeFeuilles& feuilles)
    {
        return m_archive &&
               Ajouter(nom, zip_source_function(m_archive, SourceDeFeuilles::Servir, &feuilles), ZIP_CM_DEFLATE);
    }
    bool Fermer()
    {
        if (!m_archive || zip_close(m_archive) != 0)
            return false;
        m_archive = nullptr;
        return true;
    }
    Fin Echec() const
    {
        const zip_error_t* erreur = m_archive ? zip_get_error(m_archive) : &m_erreur;
        return zip_error_system_type(erreur) == ZIP_ET_SYS ? FinDeLErreur(zip_error_code_system(erreur))
                                                           : Fin::EcritureRefusee;
    }

private:
    bool Ajouter(const char* nom, zip_source_t* source, zip_int32_t methode)
    {
        const zip_int64_t rang = source ? zip_file_add(m_archive, nom, source, 0) : -1;
        if (rang < 0) {
            zip_source_free(source);
            return false;
        }
        const auto place = static_cast<zip_uint64_t>(rang);
        return zip_set_file_compression(m_archive, place, methode, methode == ZIP_CM_DEFLATE ? Niveau : 0) == 0 &&
               zip_file_set_dostime(m_archive, place, 0, PremierJour, 0) == 0;
    }

    zip_t* m_archive;
    zip_error_t m_erreur;
    std::deque<QByteArray> m_contenus; ///< which the library reads when it closes
};

Fin EcrirePaquetage(const QByteArray& chemin, const QString& titre, ContenuOds& contenu)
{
    SourceDeFeuilles feuilles(contenu);
    Paquetage paquetage(chemin);
    // The type of the whole stands first and as it is, where programs look for it.
    const bool ecrit = paquetage.Ajouter("mimetype", "application/vnd.oasis.opendocument.spreadsheet", ZIP_CM_STORE) &&
                       paquetage.Ajouter("META-INF/manifest.xml", Manifeste()) &&
                       paquetage.Ajouter("content.xml", feuilles) && paquetage.Ajouter("styles.xml", Styles()) &&
                       paquetage.Ajouter("meta.xml", Meta(titre)) &&
                       paquetage.Ajouter("settings.xml", Reglages(contenu.Feuilles())) && paquetage.Fermer();
    feuilles.Relancer();
    if (ecrit || feuilles.Etat() != Fin::Faite)
        return feuilles.Etat();
    return paquetage.Echec();
}

} // namespace

Fin EcrireOds(const TableExportee& contenu, const TitresOds& titres, const QString& chemin, Progression& progression,
              LimitesOds limites)
{
    Brouillon brouillon(chemin);
    ContenuOds feuilles(contenu, titres, progression, limites);
    Fin fin = brouillon.Ouvrir();
    brouillon.Fermer();
    if (fin == Fin::Faite)
        fin = feuilles.Examiner();
    if (fin == Fin::Faite)
        fin = EcrirePaquetage(brouillon.Chemin(), contenu.Nom(), feuilles);
    return fin == Fin::Faite ? brouillon.Deposer() : fin;
}
