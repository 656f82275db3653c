#include "console/profiles/profiles.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "console/profiles/private_file.h"
#include "tests/console/failing.h"
#include "tests/console/user_settings.h"

namespace kodra::console {
namespace {

namespace fs = std::filesystem;

unsigned ModeOf(const fs::path& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
  return status.st_mode & 0777U;
}

Profile Acervo() { return {"acervo", "DSN=Acervo;UID=ana", {.variable = "ACERVO_SENHA"}}; }

TEST(ProfilesTest, AreInAFileThatOnlyTheUserMayReadInAFolderOfTheirOwn) {
  const UserSettings user;
  const mode_t former = umask(0);
  Profiles().Add(Acervo(), false);
  umask(former);
  EXPECT_EQ(ProfilesPath(), user.File());
  EXPECT_EQ(user.Text(), "[acervo]\nconexao = DSN=Acervo;UID=ana\nsenha-de = ACERVO_SENHA\n");
  EXPECT_EQ(ModeOf(user.File()), 0600U);
  EXPECT_EQ(ModeOf(user.File().parent_path()), 0700U);
}

TEST(ProfilesTest, ArePrivateAgainAfterAChange) {
  const UserSettings user;
  Profiles().Add(Acervo(), false);
  fs::permissions(user.File(), fs::perms::group_read | fs::perms::others_read, fs::perm_options::add);
  Profiles().Add({"outro", "DSN=Outro", {}}, false);
  EXPECT_EQ(ModeOf(user.File()), 0600U);
  EXPECT_EQ(std::distance(fs::directory_iterator(user.File().parent_path()), fs::directory_iterator()), 1);
}

TEST(ProfilesTest, AreInTheHomeFolderWithoutAFolderOfSettings) {
  const UserSettings user;
  const std::string home = getenv("HOME");
  setenv("HOME", "/casa/ana", 1);
  for (const char* const settings : {"", "relativa"}) {
    setenv("XDG_CONFIG_HOME", settings, 1);
    EXPECT_EQ(ProfilesPath(), "/casa/ana/.config/kodrarpt/perfis.ini");
  }
  unsetenv("HOME");
  EXPECT_EQ(RefusalOf(ProfilesPath),
            "a variável de ambiente HOME, que diz onde ficam os perfis, não existe: defina-a com a sua pasta pessoal");
  setenv("HOME", home.c_str(), 1);
}

TEST(ProfilesTest, AreFoundInAnyLetterCaseAndWithoutAccents) {
  const UserSettings user;
  user.Write("[Órgão]\nCONEXAO = DSN=A; B={c;d}\npergunta-senha = Sim\n");
  const Profiles profiles;
  const Profile& found = profiles.Find("orgao");
  EXPECT_EQ(found.name, "Órgão");
  EXPECT_EQ(found.connection, "DSN=A; B={c;d}");
  EXPECT_TRUE(found.password.asks);
  EXPECT_EQ(RefusalOf([&] { profiles.Find("orgo"); }),
            "o perfil \"orgo\" não existe (quis dizer \"Órgão\"?); kodrarpt perfil lista mostra todos");
}

TEST(ProfilesTest, WithAProblemAreListedAndNotUsed) {
  struct Case {
    std::string lines, problem;
  };
  for (const Case& wrong : std::vector<Case>{
           {"senha-de = X\n", "falta conexao"},
           {"conexao = DSN=A\nsenha = x\n",
            "\"senha\" não existe em um perfil; há conexao, senha-de, senha-comando, pergunta-senha"},
           {"conexao = DSN=A\npergunta-senha = talvez\n", "pergunta-senha deve ser sim ou não"},
           {"conexao = DSN=A\nsenha-de = X\nsenha-comando = y\n",
            "só um de senha-de, senha-comando e pergunta-senha pode ser usado"},
           {"conexao = DSN=A;Pwd={x}\n",
            "a conexão contém uma senha: tire-a da string de conexão e use senha-de, senha-comando ou pergunta-senha "
            "(veja kodrarpt perfil --help)"},
       }) {
    const UserSettings user;
    user.Write("[acervo]\n" + wrong.lines);
    const Profiles profiles;
    EXPECT_EQ(profiles.All().size(), 1U);
    EXPECT_EQ(profiles.All().front().problem, wrong.problem);
    EXPECT_EQ(RefusalOf([&] { profiles.Find("acervo"); }), "o perfil \"acervo\" não pode ser usado: " + wrong.problem);
  }
}

TEST(ProfilesTest, AcceptNoPasswordInAConnection) {
  const UserSettings user;
  for (const char* const password : {"PWD=x", "Password=\"x\"", "password = {x}", "Jet OLEDB:Database Password=x"})
    EXPECT_EQ(RefusalOf([&] {
                Profiles().Add({"a", std::string("DSN=A;") + password, {}}, false);
              }),
              "a conexão contém uma senha: tire-a da string de conexão e use senha-de, senha-comando ou pergunta-senha "
              "(veja kodrarpt perfil --help)")
        << password;
  EXPECT_FALSE(fs::exists(user.File()));
}

TEST(ProfilesTest, RefuseNamesThatAreNotPartOfAFileName) {
  const UserSettings user;
  for (const char* const name : {"", "a b", "a/b", "[a]", ".a", "a\nb"})
    EXPECT_EQ(RefusalOf([&] {
                Profiles().Add({name, "DSN=A", {}}, false);
              }),
              "o nome de um perfil tem até 60 caracteres, só letras, algarismos, hífen, sublinhado e ponto, e não "
              "começa com ponto")
        << name;
  EXPECT_EQ(RefusalOf([&] {
              Profiles().Add({"a", "DSN=A\nB=C", {}}, false);
            }),
            "um perfil não pode conter uma quebra de linha nem outro caractere de controle");
}

TEST(ProfilesTest, AreReplacedOnlyWhenThatIsAskedFor) {
  const UserSettings user;
  user.Write("; do setor\n\n[acervo]\nconexao = DSN=A\nsenha-de = X\n");
  EXPECT_EQ(RefusalOf([] {
              Profiles().Add({"ACERVO", "DSN=B", {}}, false);
            }),
            "o perfil \"acervo\" já existe: para trocá-lo, acrescente --substitui");
  Profiles().Add({"ACERVO", "DSN=B", {}}, true);
  EXPECT_EQ(user.Text(), "; do setor\n\n\n[ACERVO]\nconexao = DSN=B\n");
}

TEST(ProfilesTest, AreRemovedAndTheOthersStay) {
  const UserSettings user;
  user.Write("[a]\nconexao = DSN=A\n[outro]\nconexao = DSN=B\n");
  EXPECT_EQ(Profiles().Remove("A"), "a");
  EXPECT_EQ(user.Text(), "[outro]\nconexao = DSN=B\n");
  EXPECT_EQ(RefusalOf([] { Profiles().Remove("a"); }), "o perfil \"a\" não existe; kodrarpt perfil lista mostra todos");
}

TEST(ProfilesTest, AreNotReadFromAFileThatOthersMayChange) {
  const UserSettings user;
  Profiles().Add(Acervo(), false);
  const std::string file = user.File().string();
  const std::string folder = user.File().parent_path().string();
  fs::permissions(file, fs::perms::group_write, fs::perm_options::add);
  EXPECT_EQ(FailureOf([] { Profiles(); }), "outros usuários podem alterar \"" + file +
                                               "\", e por isso não é usado: confira o que há nele e rode chmod 600 \"" +
                                               file + "\".");
  fs::permissions(file, fs::perms::group_write, fs::perm_options::remove);
  fs::permissions(folder, fs::perms::others_write, fs::perm_options::add);
  EXPECT_EQ(FailureOf([] { Profiles(); }), "outros usuários podem alterar \"" + folder +
                                               "\", e por isso não é usado: confira o que há nele e rode chmod 700 \"" +
                                               folder + "\".");
}

TEST(ProfilesTest, AreNotReadFromAFileOfAnotherUser) {
  if (geteuid() != 0) GTEST_SKIP() << "only root may give a file away";
  const UserSettings user;
  Profiles().Add(Acervo(), false);
  ASSERT_EQ(chown(user.File().c_str(), 65534, 65534), 0);
  EXPECT_EQ(FailureOf([] { Profiles(); }), "\"" + user.File().string() +
                                               "\" pertence a outro usuário, e por isso não é usado: peça a quem "
                                               "administra a máquina que o passe para você.");
}

TEST(ProfilesTest, AreNotWrittenThroughALinkIntoAFolderThatOthersMayChange) {
  const UserSettings user;
  Profiles().Add(Acervo(), false);
  const tests::TemporaryFolder other;
  fs::permissions(other.Path(), fs::perms::all);
  fs::rename(user.File(), other / "perfis.ini");
  fs::create_symlink(other / "perfis.ini", user.File());
  EXPECT_EQ(FailureOf([] { Profiles(); }), "outros usuários podem alterar \"" + other.Path().string() +
                                               "\", e por isso não é usado: confira o que há nele e rode chmod 700 \"" +
                                               other.Path().string() + "\".");
}

TEST(ProfilesTest, RefuseAFileWithLinesBeforeTheFirstProfile) {
  const UserSettings user;
  user.Write("conexao = DSN=A\n");
  EXPECT_EQ(RefusalOf([] { Profiles(); }),
            "\"" + user.File().string() + "\" tem linhas antes do primeiro perfil, que começa com [nome]");
}

TEST(ProfilesTest, SayThatTheirFolderCannotBeMade) {
  const UserSettings user;
  std::ofstream(user.Folder() / "kodrarpt") << "não é pasta";
  EXPECT_EQ(FailureOf([&] { WritePrivateFile(user.File(), "x"); }),
            "não foi possível criar a pasta \"" + (user.Folder() / "kodrarpt").string() +
                "\": já existe um arquivo com esse nome; escolha outro.");
}

}  // namespace
}  // namespace kodra::console
