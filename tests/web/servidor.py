#!/usr/bin/env python3
"""The price simulator's server, asked as a page, a program and a nuisance would. Usage: servidor.py PROGRAM OPENAPI"""
import contextlib, hashlib, io, json, os, random, re, signal, socket, sqlite3, subprocess, sys, tempfile, threading, time
import zipfile

PROGRAMA, OPENAPI = os.path.realpath(sys.argv[1]), json.load(open(sys.argv[2], encoding="utf-8"))
DIA = ["--hoy", "21/11/2026"]
fallos = []


def exigir(vale, *que):
    if not vale:
        fallos.append(que)
        print("FALLA:", *que)


def programa(*argumentos):
    return subprocess.run([PROGRAMA, *argumentos], capture_output=True, text=True, check=False)


def dicho(*argumentos):
    return programa(*argumentos, "--base", "demo.kv", "--json", *DIA).stdout


@contextlib.contextmanager
def servidor(*opciones):
    """A server on a free port; it must end well, and soon after Ctrl-C."""
    proceso = subprocess.Popen([PROGRAMA, "servir", "--base", "demo.kv", "--puerto", "0", *DIA, *opciones],
                               stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    puerto = int(re.fullmatch(r"http://127\.0\.0\.1:(\d+)/\n", proceso.stdout.readline())[1])
    try:
        yield puerto
    finally:
        proceso.send_signal(signal.SIGINT)
        desde = time.monotonic()
        try:
            _, errores = proceso.communicate(timeout=20)
        except subprocess.TimeoutExpired:
            proceso.kill()
            errores = "no acaba"
        exigir(proceso.returncode == 0 and not errores, "fin", proceso.returncode, errores[:300])
        exigir(time.monotonic() - desde < 3, "Ctrl-C tarda", time.monotonic() - desde)


class Cliente:
    """A connection that is kept; what it reads has to be exactly one answer."""

    def __init__(self, puerto):
        self.puerto, self.enchufe = puerto, socket.create_connection(("127.0.0.1", puerto), timeout=20)
        self.flujo = self.enchufe.makefile("rb")

    def leer(self, cuerpo=bytes.decode):
        linea = self.flujo.readline().decode()
        estado = re.match(r"HTTP/1\.1 (\d{3}) ", linea)
        if not estado:
            return 0, {}, linea
        cabeceras = {}
        while (linea := self.flujo.readline().decode().strip()):
            nombre, valor = linea.split(": ", 1)
            cabeceras[nombre.lower()] = valor
        return int(estado[1]), cabeceras, cuerpo(self.flujo.read(int(cabeceras.get("content-length", 0))))

    def cruda(self, octetos):
        """Sends these bytes and no more, and reads the answer."""
        with contextlib.suppress(OSError):
            self.enchufe.sendall(octetos)
            self.enchufe.shutdown(socket.SHUT_WR)
        with contextlib.suppress(OSError):
            return self.leer()
        return 0, {}, ""

    def pedir(self, ruta, metodo="GET", cuerpo=bytes.decode, **otras):
        cabeceras = {"Host": f"127.0.0.1:{self.puerto}", **{k.replace("_", "-"): v for k, v in otras.items()}}
        lineas = "".join(f"{k}: {v}\r\n" for k, v in cabeceras.items() if v is not None)
        self.enchufe.sendall(f"{metodo} {ruta} HTTP/1.1\r\n{lineas}\r\n".encode())
        return self.leer(cuerpo)


def mismas_respuestas(puerto):
    cliente = Cliente(puerto)
    for ruta, *orden in [
        ("cargar?articulo=113&cliente=11", "cargar", "--articulo", "113", "--cliente", "11", "--explica"),
        ("cargar?articulo=102&cliente=5&fecha=31/12/2026&tarifa=1&unidades=2,5&decimales=3&almacen=1&cualidadX=0",
         "cargar", "--articulo", "102", "--cliente", "5", "--fecha", "31/12/2026", "--tarifa", "1", "--unidades", "2,5",
         "--decimales", "3", "--explica"),
        ("cargar?articulo=101&cliente=1&tarifa=-1", "cargar", "--articulo", "101", "--cliente", "1", "--tarifa", "-1",
         "--explica"),
        ("articulos?texto=broca+hormig%C3%B3n", "articulos", "buscar", "broca", "hormigon"),
        ("articulos?familia=1.2&limite=3", "articulos", "listar", "--familia", "1.2", "--limite", "3"),
        ("clientes?grupo=2&nodo=1&limite=200", "clientes", "listar", "--grupo", "2", "--nodo", "1"),
        ("existencias?articulo=101", "stock", "ver", "--articulo", "101"),
        ("precios?articulo=102&tarifa=1", "tarifas", "de", "102", "--tarifa", "1"),
        *((lista, lista, "listar") for lista in ("tarifas", "almacenes", "grupos", "cadenas", "empresas")),
    ]:
        exigir(cliente.pedir("/api/" + ruta)[2] == dicho(*orden), "otra respuesta", ruta)
    seleccion = ["lista", "--articulos", "101", "113", "106", "--clientes", "3", "11", "--con-coste"]
    lista = "/api/lista{}?articulos=101,113,106&clientes=3,11&{}"
    csv = programa(*seleccion, "--csv", "--base", "demo.kv", *DIA).stdout
    exigir(cliente.pedir(lista.format(".csv", ""))[2].replace("\r\n", "\n") == csv, "otra lista", csv)
    libro = cliente.pedir(lista.format(".xlsx", ""), cuerpo=io.BytesIO)[2]
    hoja = zipfile.ZipFile(libro).read("xl/worksheets/sheet1.xml").decode()
    exigir(all(f"<t>{codigo}</t>" in hoja for codigo in ("101", "106", "113")), "libro", hoja[:300])
    todas = json.loads(cliente.pedir(lista.format("", ""))[2])
    exigir((len(todas["lineas"]), todas["siguiente"], todas["limite"]) == (6, None, None), "lista", todas)
    paginas = [json.loads(cliente.pedir(lista.format("", f"lineas=4&saltar={n}"))[2]) for n in (0, 4)]
    exigir(paginas[0]["lineas"] + paginas[1]["lineas"] == todas["lineas"], "páginas", paginas)
    exigir((paginas[0]["siguiente"], paginas[0]["limite"], paginas[1]["siguiente"]) == (4, "lineas", None), "páginas", paginas)


def errores(puerto):
    for estado, ruta, campo in [
        (400, "cargar?cliente=1", "articulo"), (400, "cargar?articulo=x&cliente=1", "articulo"),
        (400, "cargar?articulo=101&cliente=1&fecha=30/2/2026", "fecha"), (400, "cargar?articulo=101&articulo=101", "articulo"),
        (400, "cargar?articulo=101&cliente=1&tarifa=", "tarifa"), (400, "cargar?articulo=101&cliente=1&otra=1", "otra"),
        (400, "articulos?texto=%FF", None), (400, "articulos?texto=a%00b", None), (400, "articulos?texto=%4", None),
        (400, "articulos?limite=201", "limite"), (400, "sesion?empresa=9", "empresa"),
        (404, "cargar?articulo=5555&cliente=1", "articulo"), (404, "articulos?texto=nada+de+esto", None), (404, "nada", None),
        (404, "../../etc/passwd", None)]:
        real, cabeceras, texto = Cliente(puerto).pedir("/api/" + ruta)
        error = json.loads(texto).get("error", {})
        exigir((real, error.get("campo")) == (estado, campo) and error["mensaje"], ruta, real, texto)
        exigir(cabeceras["content-type"].startswith("application/json"), ruta, cabeceras)
    propio = f"127.0.0.1:{puerto}"
    for estado, metodo, otras in [
        (200, "GET", {}), (200, "GET", {"Host": f"LOCALHOST:{puerto}", "Origin": f"http://localhost:{puerto}"}),
        (200, "GET", {"Host": "precios.casa", "Origin": "https://precios.casa"}), (403, "GET", {"Host": "precios.casa.mala"}),
        (403, "GET", {"Host": "127.0.0.1"}), (403, "GET", {"Host": f"mala.example:{puerto}"}), (403, "GET", {"Host": None}),
        (403, "GET", {"Origin": "http://mala.example"}), (403, "GET", {"Origin": "null"}), (403, "GET", {"Origin": propio}),
        (405, "POST", {}), (405, "HEAD", {}), (405, "DELETE", {}), (413, "GET", {"Content-Length": "5"}),
        (413, "GET", {"Transfer-Encoding": "chunked"}), (431, "GET", {f"X-{i}": "1" for i in range(65)}),
        (431, "GET", {"X": "x" * 17000})]:
        real, cabeceras, _ = Cliente(puerto).pedir("/api/tarifas", metodo, **otras)
        exigir(real == estado, metodo, str(otras)[:80], real)
        exigir("default-src 'none'" in cabeceras["content-security-policy"], "CSP", metodo)
    exigir(Cliente(puerto).pedir("/api/tarifas?texto=" + "x" * 8000)[0] == 414, "dirección larga")
    otro = programa("servir", "--base", "demo.kv", "--puerto", str(puerto))
    exigir(otro.returncode == 3 and f"puerto {puerto}" in otro.stderr, "segundo servidor", otro.stderr)


def a_la_vez(puerto):
    esperadas = {n: dicho("cargar", "--articulo", str(n), "--cliente", "11", "--explica") for n in range(101, 121)}

    def uno(semilla):
        azar, cliente = random.Random(semilla), Cliente(puerto)
        for _ in range(10):
            n = azar.choice(list(esperadas))
            real = cliente.pedir(f"/api/cargar?articulo={n}&cliente=11")
            exigir(real[2] == esperadas[n], "a la vez", n, real[:2])

    hilos = [threading.Thread(target=uno, args=(i,)) for i in range(20)]
    for hilo in hilos:
        hilo.start()
    for hilo in hilos:
        hilo.join()


def deformadas(puerto, azar):
    buena = (f"GET /api/cargar?articulo=113&cliente=11&fecha=2026-11-21&unidades=2,5 HTTP/1.1\r\nHost: 127.0.0.1:{puerto}\r\n"
             f"Origin: http://127.0.0.1:{puerto}\r\nAccept: */*\r\n\r\n").encode()
    vistos = {}
    for _ in range(5000):
        texto = bytearray(buena)
        for _ in range(azar.randint(1, 4)):
            i, j = sorted(azar.randrange(len(texto) + 1) for _ in range(2))
            texto[i:j if azar.random() < 0.3 else i + azar.randint(0, 1)] = azar.choice(
                [b"", bytes([azar.randrange(256)]), b"\r\n", b"%", b"&", b"\0", texto[i:j], b"9" * 30, b":" * 9000])
        estado = Cliente(puerto).cruda(bytes(texto))[0] if texto else 400
        vistos[estado] = vistos.get(estado, 0) + 1
        exigir(estado == 200 or 400 <= estado < 500, "deformada", bytes(texto)[:300], estado)
    exigir(len(vistos) >= 6 and vistos[400] > 500, "deformadas de pocas clases", vistos)


def lentos(puerto):
    """Sixty clients that say a little and wait take all threads; the others are answered all the same."""
    atascados = [Cliente(puerto) for _ in range(60)]
    for cliente in atascados:
        cliente.enchufe.sendall(b"GET /api/tarifas HTTP/1.1\r\n")
    desde = time.monotonic()
    exigir(Cliente(puerto).pedir("/api/tarifas")[0] == 200 and time.monotonic() - desde < 4, "un lento estorba")
    estados = [cliente.leer()[0] for cliente in atascados]
    exigir(set(estados) == {408}, "a un lento no se le dice", estados)
    callado, desde = Cliente(puerto), time.monotonic()
    exigir(callado.enchufe.recv(1) == b"" and 4 < time.monotonic() - desde < 8, "un callado no se cierra")


def sin_coste(puerto):
    def claves(nodo):
        if isinstance(nodo, dict):
            yield from nodo.items()
        for hijo in nodo.values() if isinstance(nodo, dict) else nodo if isinstance(nodo, list) else []:
            yield from claves(hijo)

    cliente, vistas = Cliente(puerto), set()
    for ruta in [f"cargar?articulo={n}&cliente={c}" for n in range(101, 121) for c in (3, 11)] + ["existencias?articulo=101"]:
        estado, _, texto = cliente.pedir("/api/" + ruta)
        for clave, valor in claves(json.loads(texto)):
            if "cost" in clave.lower() or clave == "precioCompra":
                vistas.add(clave)
                exigir(valor is None, "se ve un coste", ruta, clave, valor)
    exigir(vistas == {"coste", "costeMedio", "precioCompra"}, vistas)
    exigir(cliente.pedir("/api/cargar?articulo=101&cliente=3&tarifa=-1")[0] == 404, "tarifa -1")
    for ruta in ("cargar", "historia"):
        exigir(cliente.pedir(f"/api/{ruta}?articulo=101&cliente=49")[0] == 404, "cliente a coste", ruta)
    for linea in json.loads(cliente.pedir("/api/lista?clientes=3,49&articulos=101,106")[2])["lineas"]:
        exigir("coste" not in linea and (linea["precio"] is None) == (linea["cliente"] == 49), "lista a coste", linea)
    exigir(cliente.pedir("/api/lista?clientes=3&tarifa=-1")[0] == 400, "lista con tarifa -1")


def cuadra(esquema, valor, donde):
    """The part of JSON Schema that the document uses."""
    if "$ref" in esquema:
        esquema = OPENAPI["components"]["schemas"][esquema["$ref"].rsplit("/", 1)[1]]
    tipos = esquema["type"] if isinstance(esquema["type"], list) else [esquema["type"]]
    es = {"object": dict, "array": list, "string": str, "integer": int, "number": (int, float), "boolean": bool}
    exigir(any(t == "null" and valor is None or t != "null" and isinstance(valor, es[t]) and
               (t == "boolean" or not isinstance(valor, bool)) for t in tipos), donde, valor, tipos)
    if isinstance(valor, dict):
        exigir(list(valor) == list(esquema["properties"]), donde, list(valor))
        for clave in valor.keys() & esquema["properties"].keys():
            cuadra(esquema["properties"][clave], valor[clave], f"{donde}.{clave}")
    for i, fila in enumerate(valor if isinstance(valor, list) else []):
        cuadra(esquema["items"], fila, f"{donde}[{i}]")


def contrato(puerto):
    cliente = Cliente(puerto)
    for ruta, entrada in OPENAPI["paths"].items():
        parametros = entrada["get"].get("parameters", [])
        consulta = "&".join(f"{p['name']}={p['example']}" for p in parametros if "example" in p)
        estado, _, texto = cliente.pedir(ruta + "?" + consulta)
        contenido = entrada["get"]["responses"]["200"]["content"]
        if "application/json" in contenido:
            exigir(estado == 200, ruta, estado, texto)
            cuadra(contenido["application/json"]["schema"], json.loads(texto), ruta)


def main():
    semilla = int(os.environ.get("KV_SEMILLA", random.randrange(10**6)))
    print("semilla", semilla)
    programa("crear-demo", "demo.kv", *DIA)
    malo = "<script>alert(1)</script>\u2028\"'&%"
    base = sqlite3.connect("demo.kv", isolation_level=None)
    base.execute("UPDATE Articulos SET Descripcion = ? WHERE Codigo = 120", (malo,))
    base.close()
    antes = hashlib.sha256(open("demo.kv", "rb").read()).digest()
    with servidor("--con-coste", "--host-permitido", "precios.casa") as puerto:
        estado, cabeceras, texto = Cliente(puerto).pedir("/api/articulos?limite=1&texto=script")
        exigir(json.loads(texto)["articulos"][0]["descripcion"] == malo and cabeceras["x-content-type-options"] == "nosniff", texto)
        exigir(Cliente(puerto).pedir("/api/articulos")[1].get("kv-limite") == "lineas", "límite callado")
        exigir(Cliente(puerto).pedir("/")[1]["content-type"] == "text/html; charset=utf-8", "sin página")
        for prueba in (mismas_respuestas, errores, a_la_vez, contrato, lentos):
            prueba(puerto)
        deformadas(puerto, random.Random(semilla))
        parado = Cliente(puerto)
        exigir(parado.pedir("/api/tarifas")[0] == 200, "no sigue en pie")
    with servidor() as puerto:
        sin_coste(puerto)
    exigir(hashlib.sha256(open("demo.kv", "rb").read()).digest() == antes, "la base ha cambiado")
    sys.exit(1 if fallos else 0)


with tempfile.TemporaryDirectory() as carpeta:
    os.chdir(carpeta)
    main()
