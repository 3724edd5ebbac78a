// Statements through the ODBC adapter against the bare ODBC API on the same driver: SQLite's, and PostgreSQL's when
// KV_POSTGRES names the file of scripts/postgres.sh. Both read the same types; rounds are interleaved and take turns in
// going first; prints the medians and their ratios. SQLite, which works in this process, in processor time, which
// neighbours do not disturb; PostgreSQL in real time, since most of it is the server's.
//   kv_bench_odbc [rounds]

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "kvdatosart/bench/LectorOdbc.h"
#include "kvdatosart/db/odbc/ConexionOdbc.h"

namespace kv::bench {
namespace {

constexpr int kArticulos = 1000;
constexpr std::size_t kTextos = 20;

struct Base {
    std::string nombre;
    std::string cadena;
    // The type that this database has for exact money, and how it is read there.
    const char* dinero;
    TipoOdbc lectura;
    // Microseconds since some moment.
    double (*reloj)();
};

double TiempoReal() {
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now().time_since_epoch()).count();
}
double TiempoProcesador() {
    return static_cast<double>(std::clock()) * 1e6 / CLOCKS_PER_SEC;
}

struct Medicion {
    const char* nombre;
    std::vector<std::string> textos;
    std::vector<ColumnaMedida> columnas;
};

void Llenar(const Base& base) {
    ConexionOdbc conexion(base.cadena, DialectoOdbc::Otro);
    conexion.EjecutarLote("DROP TABLE IF EXISTS Articulos");
    std::string tabla = "CREATE TABLE Articulos (Codigo int NOT NULL PRIMARY KEY, Familia_1 smallint";
    std::string fila = ", 3";
    for (int i = 1; i <= 8; ++i) {
        const std::string n = std::to_string(i);
        tabla += ", Importe_" + n + " " + base.dinero + ", Entero_" + n + " smallint, Texto_" + n + " varchar(50)";
        fila += ", 12.3456, 7, 'Articulo de prueba'";
    }
    conexion.Ejecutar(tabla + ", Doble float, Alta date)");
    conexion.BeginTrans();
    for (int i = 0; i < kArticulos; ++i)
        conexion.Ejecutar("INSERT INTO Articulos VALUES (" + std::to_string(i) + fila + ", 0.1, '2026-11-21')");
    conexion.CommitTrans();
}

std::vector<std::string> Textos(const std::string& inicio, const std::string& final_) {
    std::vector<std::string> textos;
    for (std::size_t i = 0; i < kTextos; ++i) textos.push_back(inicio + std::to_string(i * 7 % kArticulos) + final_);
    return textos;
}

std::vector<Medicion> Mediciones(TipoOdbc dinero) {
    std::vector<ColumnaMedida> todas = {{"Codigo", TipoOdbc::Largo}, {"Familia_1", TipoOdbc::Corto}};
    for (int i = 1; i <= 8; ++i) {
        const std::string n = std::to_string(i);
        todas.push_back({"Importe_" + n, dinero});
        todas.push_back({"Entero_" + n, TipoOdbc::Corto});
        todas.push_back({"Texto_" + n, TipoOdbc::Texto});
    }
    todas.push_back({"Doble", TipoOdbc::Doble});
    todas.push_back({"Alta", TipoOdbc::Dia});
    const std::vector<ColumnaMedida> dos = {{"Codigo", TipoOdbc::Largo}, {"Importe_1", dinero}};
    const std::vector<ColumnaMedida> lista = {{"Codigo", TipoOdbc::Largo}, {"Texto_1", TipoOdbc::Texto}};
    return {
        {"una fila, 2 columnas",
         Textos("SELECT Codigo, Importe_1 FROM Articulos WHERE Codigo =", " AND Importe_1 <> 0"), dos},
        {"ninguna fila", Textos("SELECT Codigo, Importe_1 FROM Articulos WHERE Codigo =-1 AND Familia_1 =", ""), dos},
        {"una fila, 28 columnas", Textos("SELECT * FROM Articulos WHERE Codigo =", ""), todas},
        {"100 filas, 2 columnas",
         Textos("SELECT Codigo, Texto_1 FROM Articulos WHERE Codigo >=", " ORDER BY Codigo LIMIT 100"), lista},
        {"escritura sin fila", Textos("UPDATE Articulos SET Entero_1 =1 WHERE Codigo =-1 AND Familia_1 =", ""), {}},
    };
}

struct Medido {
    std::unique_ptr<LectorOdbc> lector;
    std::vector<double> tiempos = {};
    double suma = 0;

    void Vuelta(double (*reloj)()) {
        const double inicio = reloj();
        for (std::size_t i = 0; i < kTextos; ++i) suma += lector->Recorrer(i);
        tiempos.push_back((reloj() - inicio) / static_cast<double>(kTextos));
    }
};

double Mediana(std::vector<double> tiempos) {
    std::sort(tiempos.begin(), tiempos.end());
    return tiempos[tiempos.size() / 2];
}

void Medir(const Base& base, int vueltas) {
    Llenar(base);
    for (const Medicion& medicion : Mediciones(base.lectura)) {
        Medido adaptador{LectorAdaptador(base.cadena, medicion.textos, medicion.columnas)};
        Medido desnudo{LectorDesnudo(base.cadena, medicion.textos, medicion.columnas)};
        for (int i = 0; i < vueltas; ++i) {
            (i % 2 == 0 ? adaptador : desnudo).Vuelta(base.reloj);
            (i % 2 == 0 ? desnudo : adaptador).Vuelta(base.reloj);
        }
        if (adaptador.suma != desnudo.suma)
            throw std::runtime_error(std::string("no leen lo mismo: ") + medicion.nombre);
        const double mediaAdaptador = Mediana(adaptador.tiempos);
        const double mediaDesnudo = Mediana(desnudo.tiempos);
        std::printf("%-12s %-24s adaptador %8.2f us  desnudo %8.2f us  razón %.2f\n", base.nombre.c_str(),
                    medicion.nombre, mediaAdaptador, mediaDesnudo, mediaAdaptador / mediaDesnudo);
    }
}

std::string ControladorSqlite() {
    for (const auto& carpeta : std::filesystem::directory_iterator("/usr/lib")) {
        const auto ruta = carpeta.path() / "odbc" / "libsqlite3odbc.so";
        std::error_code ignorado;
        if (std::filesystem::exists(ruta, ignorado)) return ruta.string();
    }
    throw std::runtime_error("no hay controlador ODBC de SQLite (libsqliteodbc)");
}

int Principal(int argc, char** argv) {
    const int vueltas = argc > 1 ? std::atoi(argv[1]) : 501;
    if (vueltas < 1) {
        std::fprintf(stderr, "uso: kv_bench_odbc [vueltas], una o más\n");
        return 2;
    }
    const std::string ruta = "bench-odbc.db";
    std::filesystem::remove(ruta);
    Medir(
        {"SQLite", "Driver=" + ControladorSqlite() + ";Database=" + ruta, "double", TipoOdbc::Doble, TiempoProcesador},
        vueltas);
    std::filesystem::remove(ruta);
    const char* fichero = std::getenv("KV_POSTGRES");
    std::string cadena;
    if (fichero != nullptr) std::getline(std::ifstream(fichero) >> std::ws, cadena);
    if (cadena.empty() || cadena.starts_with("falta: "))
        std::printf("PostgreSQL   no se mide: %s\n", cadena.empty() ? "falta KV_POSTGRES" : cadena.c_str());
    else
        Medir({"PostgreSQL", cadena, "numeric(19,4)", TipoOdbc::Dinero, TiempoReal}, vueltas);
    return 0;
}

}  // namespace
}  // namespace kv::bench

int main(int argc, char** argv) {
    return kv::bench::Principal(argc, argv);
}
