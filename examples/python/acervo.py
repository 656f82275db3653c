"""Lista os departamentos e imprime a etiqueta de abertura de um módulo.

    python acervo.py "Driver={SQLite3};Database=C:\\acervo\\acervo.db" AA001

Precisa de um Python de 32 bits, porque o componente é de 32 bits, com o pywin32 (pip install pywin32).
Os testes não executam este exemplo: não há Python para Windows onde eles rodam.
"""

import sys
from contextlib import contextmanager

import pywintypes
from win32com.client import Dispatch


@contextmanager
def aberto(linhas):
    """Fecha o Recordset no fim do bloco: enquanto está aberto, ele mantém aberta a conexão com o banco."""
    try:
        yield linhas
    finally:
        linhas.Close()


def cada_linha(linhas):
    """Percorre o Recordset. Cada linha é uma função que devolve o texto de um campo pelo nome, vazio se ele é nulo."""

    def texto(campo):
        valor = linhas.Fields.Item(campo).Value
        return "" if valor is None else str(valor)

    while not linhas.EOF:
        yield texto
        linhas.MoveNext()


def lista_departamentos(conexao):
    relatorio = Dispatch("KodraRpt.CDeptoRpt")
    relatorio.StringConexao = conexao
    with aberto(relatorio.RelatorioDeptos(Dispatch("KodraRpt.CDeptoRptObj"))) as linhas:
        print("Departamentos:")
        for texto in cada_linha(linhas):
            print(f"  {texto('DESCR_DEPTO')}")


def imprime_etiqueta(conexao, modulo):
    parametros = Dispatch("KodraRpt.CCaixaRptObj")
    parametros.Modulo1 = modulo
    relatorio = Dispatch("KodraRpt.CCaixaRpt")
    relatorio.StringConexao = conexao
    with aberto(relatorio.EtiquetaAbertura(parametros)) as linhas:
        print("Etiquetas de abertura:")
        # Cada módulo vem duas vezes: são duas etiquetas de abertura.
        for texto in cada_linha(linhas):
            print(
                f"  {texto('NUM_CAIXA')} | {texto('DESC_CAIXA')} | guarda {texto('TIPO_GUARDA')}"
                f" | anos {texto('ANOS_VENCIMENTO')}"
            )


def main():
    if len(sys.argv) != 3:
        sys.exit("Uso: acervo.py CONEXÃO MÓDULO")
    _, conexao, modulo = sys.argv
    try:
        lista_departamentos(conexao)
        imprime_etiqueta(conexao, modulo)
    except pywintypes.com_error as erro:
        if not erro.excepinfo:  # a falha não veio do componente: por exemplo, a classe não está registrada
            raise
        _, origem, descricao, _, _, numero = erro.excepinfo
        print(f"Erro {numero} em {origem}: {descricao}")
        sys.exit(1)


if __name__ == "__main__":
    main()
