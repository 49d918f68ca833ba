#include "store/Base.h"
#include "store/Comptes.h"
#include "store/CopieBase.h"
#include "store/Cryptage.h"
#include "store/Def.h"
#include "support/BaseExemple.h"
#include "support/BaseSql.h"
#include "support/EnvironnementTest.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <gtest/gtest.h>
#include <sys/stat.h>

using BaseSql::sql;

namespace {

// The grid's selected row, as the store reads it.
class GrilleFactice : public SelectionGrille {
public:
    QMap<CleGrille, QString> colonnes;
    QString texteSelection(CleGrille cle) const override { return colonnes.value(cle); }
    void selectionner(int num, int dossier) {
        colonnes[CleGrille::NumDocument] = QString::number(num);
        colonnes[CleGrille::NumDossier] = QString::number(dossier);
    }
};

class Store : public ::testing::Test {
protected:
    void SetUp() override {
        Def::definirSelectionGrille(&grille);
        Session::NumCompteCourant = 1;
    }
    void TearDown() override { Def::definirSelectionGrille(nullptr); }

    EnvironnementTest env;
    GrilleFactice grille;
};

}  // namespace

TEST_F(Store, UneBaseNeuveAlesModelesEtLesIconesEtSOuvreAvecLaPhrase) {
    // Read through any SQLCipher client with the passphrase.
    EXPECT_EQ(sql("SELECT count(*) FROM Documents"), QStringList{"0"});
    const QStringList modeles = sql("SELECT NumCompte, Num, Nom FROM Dossiers ORDER BY Num");
    ASSERT_EQ(modeles.size(), 6);
    for (const QString &m : modeles) EXPECT_TRUE(m.startsWith("0|"));
    // Each icon holds the bytes of a picture file that loads.
    EXPECT_EQ(sql("SELECT count(*) FROM Icones WHERE hex(substr(ico,1,4)) = '89504E47'"), QStringList{"6"});
    // Field order matters to readers by position.
    QStringList noms;
    for (const QString &colonne : sql("PRAGMA table_info(Documents)")) noms << colonne.section(u'|', 1, 1);
    EXPECT_EQ(noms.join(u','), "NumCompte,Num,NumDossier,Titre,LoginDoc,MotDePasse,Url,Fichier,DateDebut,DateFin,Remarques,Icone");
    // Without the key the file is unreadable.
    EXPECT_FALSE(EnvironnementTest::octets(Chemins::cheminBase()).contains("SQLite format"));
}

TEST_F(Store, UnFichierEtrangerOuAutrementCleEstRefuseSansEtreTouche) {
    const QString etranger = env.chemin("etranger.kvx");
    {
        QFile f(etranger);
        f.open(QIODevice::WriteOnly);
        f.write(QByteArray(4096, 'x'));
    }
    QString raison;

    // A base protected by another password.
    const QString autreCle = env.chemin("autre.kvx");
    {
        sqlite3 *db = nullptr;
        sqlite3_open(QFile::encodeName(autreCle).constData(), &db);
        sqlite3_exec(db, "PRAGMA key='autre'; CREATE TABLE Compte (a);", nullptr, nullptr, nullptr);
        sqlite3_close(db);
    }
    const QByteArray avant = EnvironnementTest::octets(autreCle);
    EXPECT_FALSE(Base::estBaseKorvane(autreCle, &raison));
    EXPECT_TRUE(raison.contains("autre mot de passe")) << raison.toStdString();
    EXPECT_EQ(EnvironnementTest::octets(autreCle), avant);

    // In place of korvane.kvx, the start refuses it and does not recreate over it.
    QFile::remove(Chemins::cheminBase());
    QFile::copy(etranger, Chemins::cheminBase());
    EXPECT_THROW(Base::preparerBase(), Base::ErreurBase);
    EXPECT_EQ(EnvironnementTest::octets(Chemins::cheminBase()), QByteArray(4096, 'x'));
    // With the copy of the base before it at hand, the refusal names it.
    QFile::copy(autreCle, CopieBase::cheminSauvegarde());
    try {
        Base::preparerBase();
        ADD_FAILURE() << "a foreign file was accepted";
    } catch (const Base::ErreurBase &e) {
        EXPECT_TRUE(e.message().contains(CopieBase::cheminSauvegarde())) << e.message().toStdString();
    }
    QFile::remove(CopieBase::cheminSauvegarde());

    // Our key and our tables, but a column short: refused in French before any action
    // could fail on it, and left as it was.
    const QString incomplete = env.chemin("incomplete.kvx");
    {
        sqlite3 *db = nullptr;
        sqlite3_open(QFile::encodeName(incomplete).constData(), &db);
        sqlite3_exec(db,
                     "PRAGMA key='Tarvex'; CREATE TABLE Compte (NumCompte, Login); CREATE TABLE Dossiers (NumCompte, Num, Nom);"
                     "CREATE TABLE Documents (NumCompte, Num, NumDossier, Titre, LoginDoc, MotDePasse, Url, Fichier,"
                     " DateDebut, DateFin, Remarques, Icone); CREATE TABLE Icones (Num, ico, Libelle);",
                     nullptr, nullptr, nullptr);
        sqlite3_close(db);
    }
    const QByteArray incompleteAvant = EnvironnementTest::octets(incomplete);
    EXPECT_FALSE(Base::estBaseKorvane(incomplete, &raison));
    EXPECT_EQ(raison,
              "Le fichier incomplete.kvx n'est pas une base Korvane complète : la colonne Pass manque dans la "
              "table Compte.\nIl n'a pas été modifié.");
    EXPECT_EQ(EnvironnementTest::octets(incomplete), incompleteAvant);

    // A link to nothing is called what it is, and not replaced by a new base.
    QFile::remove(Chemins::cheminBase());
    ASSERT_TRUE(QFile::link(env.chemin("disparue.kvx"), Chemins::cheminBase()));
    try {
        Base::preparerBase();
        ADD_FAILURE() << "a broken link was accepted";
    } catch (const Base::ErreurBase &e) {
        EXPECT_TRUE(e.message().contains("lien vers un fichier qui n'existe pas")) << e.message().toStdString();
    }
    EXPECT_FALSE(QFile::exists(env.chemin("disparue.kvx")));
}

TEST_F(Store, LesDroitsSeResserrentSansJamaisSElargir) {
    const QString base = Chemins::cheminBase();
    EXPECT_EQ(EnvironnementTest::mode(base), 0600);
    const mode_t umaskAvant = ::umask(0);
    CopieBase::copier(env.chemin("copie.kvx"));
    EXPECT_EQ(EnvironnementTest::mode(env.chemin("copie.kvx")), 0600);
    // The settings, and the folders made for them, are the user's from their making on.
    Reglages::ecrire(Reglages::Cle::Username, QStringLiteral("alice"));
    ::umask(umaskAvant);
    EXPECT_EQ(EnvironnementTest::mode(Reglages::cheminFichier()), 0600);
    EXPECT_EQ(EnvironnementTest::mode(QFileInfo(Reglages::cheminFichier()).absolutePath()), 0700);
    EXPECT_EQ(EnvironnementTest::mode(env.chemin("config")), 0700);
    ::chmod(QFile::encodeName(env.chemin("copie.kvx")).constData(), 0644);
    CopieBase::remplacer(env.chemin("copie.kvx"));
    EXPECT_EQ(EnvironnementTest::mode(base), 0600);
    EXPECT_EQ(EnvironnementTest::mode(CopieBase::cheminSauvegarde()), 0600);
    // What others may read is narrowed at the next start, the owner's own bits kept:
    // a base its owner made read-only stays so, and nothing is written to it.
    ::chmod(QFile::encodeName(base).constData(), 0444);
    ::chmod(QFile::encodeName(CopieBase::cheminSauvegarde()).constData(), 0644);
    Base::preparerBase();
    EXPECT_EQ(EnvironnementTest::mode(base), 0400);
    EXPECT_EQ(EnvironnementTest::mode(CopieBase::cheminSauvegarde()), 0600);
    const QByteArray avant = EnvironnementTest::octets(base);
    try {
        Comptes::creer(2, "bob", "x");
        ADD_FAILURE() << "write to a read-only base succeeded";
    } catch (const Base::ErreurBase &e) {
        EXPECT_TRUE(e.message().contains("lecture seule")) << e.message().toStdString();
    }
    EXPECT_EQ(EnvironnementTest::octets(base), avant);
    // A settings file that is a folder is not Korvane's to change.
    QFile::remove(Reglages::cheminFichier());
    ASSERT_TRUE(QDir().mkdir(Reglages::cheminFichier()));
    ::chmod(QFile::encodeName(Reglages::cheminFichier()).constData(), 0755);
    Reglages::ecrire(Reglages::Cle::Username, QStringLiteral("alice"));
    EXPECT_EQ(EnvironnementTest::mode(Reglages::cheminFichier()), 0755);
}

TEST_F(Store, UneBaseEndommageeAuDemarrageNEstQueLue) {
    Comptes::creer(1, "alice", "a");
    BaseExemple::remplir(1, 5, 300);
    CopieBase::copierEntier(Chemins::cheminBase(), CopieBase::cheminSauvegarde());
    BaseExemple::abimer(Chemins::cheminBase());
    const QByteArray abimee = EnvironnementTest::octets(Chemins::cheminBase());
    // Read, never written, and the notice names the copy to take back.
    const QString avis = Base::preparerBase();
    EXPECT_TRUE(avis.contains("lecture seule") && avis.contains(CopieBase::cheminSauvegarde())) << avis.toStdString();
    EXPECT_EQ(Comptes::chercher("alice").value_or(Comptes::Compte{}).num, 1);
    try {
        Comptes::creer(2, "bob", "x");
        ADD_FAILURE() << "write to a damaged base succeeded";
    } catch (const Base::ErreurBase &e) {
        EXPECT_TRUE(e.message().contains("endommagée")) << e.message().toStdString();
    }
    EXPECT_EQ(EnvironnementTest::octets(Chemins::cheminBase()), abimee);
    // The copy taken back, the base is written again.
    CopieBase::remplacer(CopieBase::cheminSauvegarde());
    EXPECT_NO_THROW(Comptes::creer(2, "bob", "x"));
}

TEST_F(Store, DeuxLignesDeMemeNumeroNeSeConfondentJamais) {
    // A base edited by hand: two documents and two folders share their numbers.
    BaseSql::executer(Chemins::cheminBase(),
                      "INSERT INTO Documents (NumCompte, Num, NumDossier, Titre) VALUES (1, 5, 2, 'Alpha'), (1, 5, 2, 'Zulu');"
                      "INSERT INTO Dossiers (NumCompte, Num, Nom) VALUES (1, 3, 'Un'), (1, 3, 'Deux');");
    const QString deux = sql("SELECT rowid FROM Dossiers WHERE Nom='Deux'").value(0);
    // Without the row of the base, nothing is guessed.
    grille.selectionner(5, 2);
    EXPECT_THROW(SupprimerDocument(), Base::ErreurBase);
    grille.colonnes = {{CleGrille::NumDossier, "3"}, {CleGrille::Rowid, deux}};
    EXPECT_TRUE(EcrireDossier("Deux bis", 3));
    EXPECT_TRUE(SupprimerDossier(3));
    EXPECT_EQ(sql("SELECT Nom FROM Dossiers WHERE NumCompte=1"), QStringList{"Un"});
}

TEST_F(Store, LesComptesSontNumerotesParMaxPlusUnEtTrouvesSansCasseNiBlancs) {
    Comptes::creer(1, Comptes::cleLogin("  Alice "), "Mot de Passe ");
    EXPECT_EQ(Comptes::prochainNumero(), 2);
    EXPECT_EQ(sql("SELECT Login FROM Compte"), QStringList{"alice"});
    // The password is stored enciphered, blanks and case included.
    EXPECT_EQ(sql("SELECT Pass FROM Compte"), QStringList{CrypterChamp("Mot de Passe ")});
    const auto compte = Comptes::chercher(Comptes::cleLogin(" ALICE"));
    ASSERT_TRUE(compte.has_value());
    EXPECT_EQ(DecrypterChamp(compte->passStocke), "Mot de Passe ");
    // A gap left from outside: numbering follows the maximum.
    Comptes::creer(5, "o'brien", "x");
    EXPECT_EQ(Comptes::prochainNumero(), 6);
    EXPECT_TRUE(Comptes::changerMotDePasse("alice", "neuf"));
    EXPECT_FALSE(Comptes::changerMotDePasse("personne", "neuf"));
    EXPECT_EQ(sql("SELECT Pass FROM Compte WHERE Login='alice'"), QStringList{CrypterChamp("neuf")});
}

TEST_F(Store, EcrireDocumentEcritToutOuRien) {
    grille.colonnes[CleGrille::NumDossier] = "2";
    const QStringList champs{"Banque", "moi", "pw", "https://b.example", "", "01/02/2026", "", "r", "3"};
    EXPECT_TRUE(EcrireDocument(7, champs));
    EXPECT_EQ(sql("SELECT * FROM Documents"), QStringList{"1|7|2|Banque|moi|pw|https://b.example||01/02/2026||r|3"});
    // A write that fails on the third field, after two went through: a new document
    // is not written at all, a changed one keeps every field it had.
    ASSERT_TRUE(BaseSql::executer(Chemins::cheminBase(),
                                  "CREATE TRIGGER refus BEFORE UPDATE OF MotDePasse ON Documents "
                                  "BEGIN SELECT RAISE(ABORT, 'disque plein'); END"));
    EXPECT_THROW(EcrireDocument(8, champs), Base::ErreurBase);
    EXPECT_EQ(sql("SELECT count(*) FROM Documents WHERE Num=8"), QStringList{"0"});
    grille.selectionner(7, 2);
    EXPECT_THROW(ModifierDocument({{3, "Autre"}, {4, "lui"}, {5, "pw2"}}), Base::ErreurBase);
    EXPECT_EQ(sql("SELECT * FROM Documents"), QStringList{"1|7|2|Banque|moi|pw|https://b.example||01/02/2026||r|3"});
}

TEST_F(Store, MajChampDocumentEcritLeChampChiffreDeLaLigneSelectionnee) {
    grille.selectionner(5, 2);
    EXPECT_TRUE(EcrireDocument(5, {"Titre"}));
    const QString cent(100, 'p');
    EXPECT_TRUE(MajChampDocument(5, CrypterChamp(cent)));
    // 100 characters enciphered are 300; the field keeps 255, which read back as 85.
    const QStringList stocke = sql("SELECT MotDePasse FROM Documents");
    ASSERT_EQ(stocke.size(), 1);
    EXPECT_EQ(stocke[0].size(), 255);
    EXPECT_EQ(DecrypterChamp(stocke[0]), QString(85, 'p'));
    // Another account's row is refused.
    Session::NumCompteCourant = 2;
    EXPECT_THROW(MajChampDocument(3, "x"), Base::ErreurBase);
    EXPECT_THROW(SupprimerDocument(), Base::ErreurBase);
    // No selection at all (a folder row has no document number): nothing.
    Session::NumCompteCourant = 1;
    grille.colonnes.clear();
    EXPECT_FALSE(MajChampDocument(3, "x"));
    EXPECT_EQ(sql("SELECT Titre FROM Documents"), QStringList{"Titre"});
}

TEST_F(Store, LesDossiersSontParCompte) {
    EXPECT_TRUE(EcrireDossier("Banques", 3));
    Session::NumCompteCourant = 2;
    EXPECT_TRUE(EcrireDossier(QString(300, 'D'), 3));  // same number, another account
    EXPECT_TRUE(EcrireDossier("Travail", 3));          // rename
    EXPECT_EQ(sql("SELECT NumCompte, Num, Nom FROM Dossiers WHERE NumCompte>0 ORDER BY NumCompte"),
              (QStringList{"1|3|Banques", "2|3|Travail"}));
    EXPECT_TRUE(SupprimerDossier(3));
    EXPECT_THROW(SupprimerDossier(3), Base::ErreurBase);
    EXPECT_EQ(sql("SELECT NumCompte FROM Dossiers WHERE Num=3 AND NumCompte>0"), QStringList{"1"});
    // The templates of account 0 are untouched.
    EXPECT_EQ(sql("SELECT count(*) FROM Dossiers WHERE NumCompte=0"), QStringList{"6"});
}
