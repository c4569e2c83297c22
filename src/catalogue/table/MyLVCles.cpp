#include "catalogue/table/MyLVCles.h"

#include <numeric>

namespace {

constexpr uint32_t AucunRang = 0xFFFFFFFFU;

} // namespace

uint32_t ClesDeTable::Numero(const QString& cle)
{
    if (cle.size() < 2 || cle.size() > 10 || cle[0] != u'k' || cle[1] == u'0')
        return 0;
    uint64_t numero = 0;
    for (qsizetype i = 1; i < cle.size(); ++i) {
        const char16_t c = cle[i].unicode();
        if (c < u'0' || c > u'9')
            return 0;
        numero = numero * 10 + (c - u'0');
    }
    return static_cast<uint32_t>(numero);
}

void ClesDeTable::Vider()
{
    *this = ClesDeTable();
}

void ClesDeTable::Numeroter(uint32_t nombre)
{
    Vider();
    m_numeros.resize(nombre);
    std::iota(m_numeros.begin(), m_numeros.end(), 1U);
}

void ClesDeTable::Prendre(std::vector<uint32_t>&& numeros)
{
    Vider();
    m_numeros = std::move(numeros);
    for (size_t i = 0; i < m_numeros.size() && m_canonique; ++i)
        m_canonique = m_numeros[i] == i + 1;
}

void ClesDeTable::Renumeroter(const std::vector<uint32_t>& ordre)
{
    for (uint32_t position = 0; position < ordre.size(); ++position)
        m_numeros[ordre[position]] = position + 1;
    m_canonique = true;
    m_indexe = false;
}

QString ClesDeTable::CleDe(uint32_t rang) const
{
    if (rang < m_numeros.size() && m_numeros[rang] != 0)
        return CleDeNumero(m_numeros[rang]);
    return m_textes.value(rang);
}

std::optional<uint32_t> ClesDeTable::Rang(const QString& cle, const std::vector<uint32_t>& ordre) const
{
    const uint32_t numero = Numero(cle);
    if (numero == 0) {
        const auto trouve = m_rangParTexte.constFind(cle);
        return trouve == m_rangParTexte.cend() ? std::nullopt : std::optional<uint32_t>(*trouve);
    }
    if (m_canonique)
        return numero <= ordre.size() ? std::optional<uint32_t>(ordre[numero - 1]) : std::nullopt;
    if (!m_indexe)
        Indexer(ordre);
    if (numero < m_rangParNumero.size()) {
        const uint32_t rang = m_rangParNumero[numero];
        return rang == AucunRang ? std::nullopt : std::optional<uint32_t>(rang);
    }
    const auto trouve = m_rangLointain.find(numero);
    return trouve == m_rangLointain.end() ? std::nullopt : std::optional<uint32_t>(trouve->second);
}

void ClesDeTable::Donner(uint32_t rang, const QString& cle, uint32_t enPosition)
{
    if (rang >= m_numeros.size())
        m_numeros.resize(rang + 1, 0);
    Oublier(rang);
    const uint32_t numero = Numero(cle);
    m_canonique = m_canonique && numero != 0 && numero == enPosition;
    if (numero == 0) {
        if (!cle.isEmpty()) {
            m_textes.insert(rang, cle);
            m_rangParTexte.insert(cle, rang);
        }
        return;
    }
    m_numeros[rang] = numero;
    if (m_indexe)
        Inscrire(numero, rang);
}

void ClesDeTable::Oublier(uint32_t rang)
{
    if (rang >= m_numeros.size())
        return;
    if (const uint32_t numero = std::exchange(m_numeros[rang], 0); numero != 0) {
        if (m_indexe && numero < m_rangParNumero.size())
            m_rangParNumero[numero] = AucunRang;
        else if (m_indexe)
            m_rangLointain.erase(numero);
        return;
    }
    if (!m_textes.isEmpty() && m_textes.contains(rang))
        m_rangParTexte.remove(m_textes.take(rang));
}

void ClesDeTable::Inscrire(uint32_t numero, uint32_t rang) const
{
    if (numero == m_rangParNumero.size())
        m_rangParNumero.push_back(rang);
    else if (numero < m_rangParNumero.size())
        m_rangParNumero[numero] = rang;
    else
        m_rangLointain[numero] = rang;
}

void ClesDeTable::Indexer(const std::vector<uint32_t>& ordre) const
{
    m_rangParNumero.assign(ordre.size() * 2 + 16, AucunRang);
    m_rangLointain.clear();
    for (const uint32_t rang : ordre)
        if (m_numeros[rang] != 0)
            Inscrire(m_numeros[rang], rang);
    m_indexe = true;
}

size_t ClesDeTable::Memoire() const
{
    return (m_numeros.capacity() + m_rangParNumero.capacity()) * sizeof(uint32_t);
}
