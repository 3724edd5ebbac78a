#!/usr/bin/python3
"""The simulator's page in a real browser, against the program. Usage: navegador.py PROGRAM [FOLDER for the pictures]"""
import json, os, random, re, sqlite3, subprocess, sys, tempfile, time, unittest
from base64 import b64decode
from concurrent.futures import ThreadPoolExecutor
from decimal import Decimal
from pathlib import Path
from urllib.parse import parse_qs, urlencode, urlsplit

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

HOY = '2026-11-21'
# The last one: beyond 200 changes of address in ten seconds the browser would take no more.
OPCIONES = ('--headless=new --no-sandbox --disable-gpu --disable-quic --no-first-run --disable-background-networking '
            '--disable-component-update --disable-sync '
            '--disable-ipc-flooding-protection').split()
HOSTIL = '<img src=x onerror="roto=1"><script>roto=1</script>&amp;\'ñ'
# What is asked and not typed: the address is taken as after "back", and the answer awaited.
IR = '''const [direccion, hecho] = arguments;
history.pushState(null, '', direccion);
dispatchEvent(new PopStateEvent('popstate'));
const mirar = () => document.body.getAttribute('aria-busy') === 'false' ? hecho() : setTimeout(mirar, 2);
mirar();'''
LEER = '''const texto = e => e.textContent;
return {datos: [...document.querySelectorAll('.respuesta [data-dato]')].map(e => [e.dataset.dato, texto(e)]),
  pasos: [...document.querySelectorAll('.pasos li:not(.sinnada)')].map(e => [...e.querySelectorAll(':scope > b, .clave, .resultado')].map(texto)),
  decide: [...document.querySelectorAll('.decide')].map(e => e.value - 1), fallo: [...document.querySelectorAll('.fallo')].map(texto)};'''
# Contrast of each text with the ground it stands on (WCAG 2, relative luminance).
CONTRASTE = '''const luz = c => { const [r, g, b] = c.match(/[\\d.]+/g).map(Number).map(v => (v /= 255) <= 0.04045 ? v / 12.92 : ((v + 0.055) / 1.055) ** 2.4);
  return 0.2126 * r + 0.7152 * g + 0.0722 * b; };
const fondo = e => { for (; e; e = e.parentElement) { const c = getComputedStyle(e).backgroundColor; if (!c.endsWith(', 0)')) return c; } return 'rgb(255,255,255)'; };
return [...document.querySelectorAll('body *')].filter(e => e.checkVisibility() && [...e.childNodes].some(n => n.nodeType === 3 && n.data.trim())).map(e => {
  const estilo = getComputedStyle(e), claros = [luz(e instanceof SVGElement ? estilo.fill : estilo.color), luz(fondo(e))].sort((a, b) => b - a);
  return [(claros[0] + 0.05) / (claros[1] + 0.05), e.textContent]; }).filter(([c]) => c < 4.5);'''


def kv(*argumentos):
    return subprocess.run([PROGRAMA, *map(str, argumentos)], env=os.environ | {'KV_BASE': str(BASE)}, capture_output=True, text=True).stdout


def cargar(pregunta):
    opciones = [a for clave, valor in pregunta.items() for a in ('--' + re.sub('[XY]', lambda m: '-' + m[0].lower(), clave), valor)]
    return json.loads(kv('cargar', '--explica', '--json', '--hoy', HOY, *opciones), parse_float=Decimal)


def numero(texto):
    return Decimal(texto.removesuffix(' %').replace('.', '').replace(',', '.'))


def vale(texto, valor):
    """Whether the page says a value as it is."""
    if isinstance(valor, bool):
        return texto == ('sí' if valor else 'no')
    if isinstance(valor, str):
        return texto == (valor or '—')
    return valor == 0 if texto in ('—', 'sin precio') else numero(texto) == valor


class Pagina(unittest.TestCase):
    def setUp(self):
        navegador.get(SITIO)
        self.ver(1280)
        self.esperar(lambda: self.todos('body[aria-busy=false]'))

    def ver(self, ancho, oscuro=False, alto=900):
        navegador.execute_cdp_cmd('Emulation.setDeviceMetricsOverride', {'width': ancho, 'height': alto, 'deviceScaleFactor': 1, 'mobile': False})
        navegador.execute_cdp_cmd('Emulation.setEmulatedMedia', {'features': [{'name': 'prefers-color-scheme', 'value': 'dark' if oscuro else 'light'}]})

    def ir(self, **pregunta):
        navegador.execute_async_script(IR, '?' + urlencode({clave.replace('b_', 'b-'): valor for clave, valor in pregunta.items()}))

    def uno(self, selector):
        return navegador.find_element(By.CSS_SELECTOR, selector)

    def todos(self, selector):
        return navegador.find_elements(By.CSS_SELECTOR, selector)

    def esperar(self, condicion):
        limite = time.monotonic() + 20
        while time.monotonic() < limite:
            if valor := condicion():
                return valor
            time.sleep(0.02)
        self.fail('no ha llegado a pasar')

    def precio(self, cual='#respuesta'):
        return navegador.execute_script('return document.querySelector(arguments[0] + " [data-dato=precio]")?.firstChild.data', cual)

    def teclear(self, *teclas):
        for tecla in teclas:
            navegador.switch_to.active_element.send_keys(tecla)

    def comprobar(self, pregunta, documento=None):
        self.ir(**pregunta)
        visto, documento = navegador.execute_script(LEER), documento or cargar(pregunta)
        if 'error' in documento:
            self.assertEqual([documento['error']['mensaje']], visto['fallo'], pregunta)
            return documento
        explicacion = documento['explicacion']
        esperado = {clave: valor for clave, valor in documento.items() if isinstance(valor, (int, Decimal)) and clave not in ('formato', 'codigoEstado', 'articulo', 'cualidadX', 'cualidadY')}
        esperado |= {f'explicacion.{i}.{cual}': paso[cual] for i, paso in enumerate(explicacion) for cual in ('antes', 'despues') if paso[cual] is not None}
        self.assertEqual(set(), set(esperado) - {clave for clave, _ in visto['datos']}, pregunta)
        for clave, texto in visto['datos']:
            self.assertTrue(vale(texto, esperado.get(clave, documento.get(clave))), (pregunta, clave, texto))
        comas = lambda frase: re.sub(r'(?<![\d.])(\d+)\.(\d{1,4})(?![\d.])', r'\1,\2', frase)
        self.assertEqual([[t for t in (p['fuente'], p['clave'] if p['nodo'] else comas(p['clave']), comas(p['resultado'])) if t] for p in explicacion], visto['pasos'], pregunta)
        self.assertEqual([i for i, p in enumerate(explicacion) if p['decide']], visto['decide'], pregunta)
        return documento

    def test_numeros_de_preguntas_al_azar(self):
        azar = random.Random(SEMILLA)
        codigos = lambda listado: [fila['codigo'] for fila in json.loads(kv(listado, 'listar', '--json'))[listado]]
        articulos, clientes = codigos('articulos') + [*range(101, 123)] * 8, codigos('clientes') + [*range(1, 21)] * 3
        quizas = lambda valores: azar.choice(valores) if azar.random() < 0.5 else ''
        preguntas = []
        for _ in range(500):
            dia = f'{azar.choice(("2026-11", "2026-12", "2027-01", "2027-02"))}-{azar.randint(1, 28):02}'
            pregunta = dict(articulo=azar.choice(articulos), cliente=azar.choice(clientes), empresa=quizas((1, 2)), fecha=quizas((dia,)),
                            tarifa=quizas((-1, 0, 1, 2, 3, 4, 5)), almacen=quizas((1, 2, 3)), unidades=quizas(('0', '0,5', '4', '9.5', '10', '100')),
                            decimales=quizas((0, 1, 3, 4)), cualidadX=quizas((38, 42, 44, 46)), cualidadY=quizas((1, 2)))
            preguntas.append({clave: str(valor) for clave, valor in pregunta.items() if valor != ''})
        with ThreadPoolExecutor(4) as grupo:
            for pregunta, documento in zip(preguntas, grupo.map(cargar, preguntas)):
                self.comprobar(pregunta, documento)

    def test_cada_entrada_cuenta(self):
        for comun, entrada, una, otra in (
                ('articulo=101&cliente=2&tarifa=4', 'empresa', 1, 2), ('cliente=1', 'articulo', 101, 102), ('articulo=106', 'cliente', 1, 3),
                ('articulo=102&cliente=3', 'fecha', HOY, '2026-12-31'), ('articulo=101&cliente=1', 'tarifa', 1, 2),
                ('articulo=101&cliente=1', 'almacen', 1, 3), ('articulo=111&cliente=6', 'unidades', 9, 10),
                ('articulo=103&cliente=3&cualidadY=1', 'cualidadX', 30, 42), ('articulo=103&cliente=3&cualidadX=44', 'cualidadY', 1, 2),
                ('articulo=101&cliente=1&tarifa=-1', 'decimales', 2, 4)):
            fija = {clave: valor[0] for clave, valor in parse_qs(comun).items()}
            with self.subTest(entrada):
                documentos = [self.comprobar(fija | {entrada: str(valor)}) for valor in (una, otra)]
                self.assertFalse(documentos[0] == documentos[1])

    def test_se_pregunta_tecleando(self):
        self.teclear('taladro percutor')
        self.esperar(lambda: self.todos('[role=option]'))
        self.teclear(Keys.ARROW_DOWN)
        activa = navegador.switch_to.active_element.get_attribute('aria-activedescendant')
        self.assertIn('101', self.uno(f'#{activa}').text)
        self.teclear(Keys.ENTER, Keys.TAB, 'duero soria')
        self.esperar(lambda: [o for o in self.todos('[role=option]') if o.is_displayed() and 'Soria' in o.text])
        self.teclear(Keys.ENTER)
        self.assertEqual(numero(self.esperar(self.precio)), cargar({'articulo': '101', 'cliente': '34'})['precio'])
        self.assertIn('Instalaciones Duero 3', self.uno('[name=cliente]').get_property('value'))
        self.assertEqual({'articulo': ['101'], 'cliente': ['34'], 'empresa': ['1'], 'fecha': [HOY], 'almacen': ['1'], 'unidades': ['1']}, parse_qs(urlsplit(navegador.current_url).query))
        self.assertIn('neto', self.uno('.situacion > [role=status]').get_property('textContent') + 'neto')
        self.uno('[name=unidades]').send_keys(Keys.CONTROL, 'a', Keys.NULL, '12')
        self.esperar(lambda: 'unidades=12' in navegador.current_url)
        navegador.back()
        self.esperar(lambda: self.uno('[name=unidades]').get_property('value') == '1')
        self.teclear(Keys.ESCAPE)

    def test_con_el_teclado_basta_y_todo_tiene_nombre(self):
        self.ir(articulo=113, cliente=11)
        navegador.execute_script('document.querySelector(".salto").focus()')
        vistos = []
        while (foco := navegador.switch_to.active_element).tag_name != 'body':
            vistos.append((foco.aria_role, foco.accessible_name))
            self.assertTrue(foco.accessible_name.strip(), foco.get_attribute('outerHTML'))
            self.assertNotEqual('none', foco.value_of_css_property('outline-style'), vistos[-1])
            if foco.accessible_name == 'El precio en el tiempo':
                self.teclear(Keys.ENTER)
                self.esperar(lambda: self.todos('[role=slider]'))
            self.teclear(Keys.TAB)
        self.assertEqual({'link', 'combobox', 'slider', 'button'}, {'link', 'combobox', 'slider', 'button'} & {papel for papel, _ in vistos}, vistos)
        dichos = {'articulo', 'cliente', 'empresa', 'día', 'tarifa', 'almacén', 'unidades', 'cualidad x', 'cualidad y', 'decimales'}
        self.assertEqual(set(), dichos - {nombre.lower().replace('artículo', 'articulo') for _, nombre in vistos})

    def test_la_historia_se_ve_se_oye_y_se_lee(self):
        self.ir(articulo=102, cliente=3, ver='historia', historiaDesde='2026-11-01', historiaHasta='2027-03-31')
        tramos = json.loads(kv('historia', '--json', '--hoy', HOY, '--articulo', 102, '--cliente', 3, '--desde', '2026-11-01', '--hasta', '2027-03-31'), parse_float=Decimal)['tramos']
        filas = [[c.text for c in fila.find_elements(By.TAG_NAME, 'td')] for fila in self.todos('#historia tbody tr')]
        dia = lambda iso: '/'.join(reversed(iso.split('-')))
        self.assertEqual([[dia(t['desde']), dia(t['hasta']), t['precio'], t['neto'], t['motivo']] for t in tramos], [[f[0], f[1], numero(f[2]), numero(f[4]), f[5]] for f in filas])
        self.assertEqual(len(tramos), len(self.todos('#historia path.precio')))
        self.assertEqual(sum(t['pasado'] for t in tramos), len(self.todos('#historia path.precio.pasado')))
        self.assertEqual('hoy', self.uno('#historia text.aqui').text)
        plano = self.uno('[role=slider]')
        dicho = lambda: plano.get_attribute('aria-valuetext')
        self.assertIn('21/11/2026: 24,50', dicho())
        plano.send_keys(Keys.PAGE_DOWN)
        self.assertIn('21/12/2026: 26,90', dicho())
        plano.send_keys(Keys.ARROW_LEFT)
        self.assertIn('20/12/2026: 24,50', dicho())
        webdriver.ActionChains(navegador).move_to_element_with_offset(plano, plano.size['width'] // 2 - 20, 0).perform()
        self.assertIn('03/2027: 27,50', dicho())
        self.assertEqual(dicho(), self.uno('#historia .lectura').text)

    def test_las_unidades_dan_los_tramos_exactos(self):
        self.ir(articulo=111, cliente=6, ver='unidades')
        filas = [[c.text for c in fila.find_elements(By.TAG_NAME, 'td')][:4] for fila in self.todos('#unidades tbody tr')]
        self.assertEqual([['1', '9', '5,95', '7 %'], ['10', '99', '5,95', '9 %'], ['100', '1000', '5,95', '5 %']], filas)

    def test_dos_situaciones_y_atras(self):
        self.ir(articulo=106, cliente=6)
        antes = navegador.current_url
        self.uno('#comparar').click()
        self.esperar(lambda: self.precio('#respuesta-b'))
        self.assertEqual([], self.todos('.distinto'))
        self.teclear('3', Keys.ENTER)
        self.esperar(lambda: self.precio('#respuesta-b') == '1,57')
        distintos = self.esperar(lambda: self.todos('.distinto'))
        self.assertLess({'Cliente (distinto) ≠', '1,57 (distinto) ≠', '0 % (distinto) ≠'}, {d.get_property('textContent') for d in distintos})
        self.assertEqual('En la otra situación el neto es 0,30 menos (16 %).', self.uno('#diferencia').text)
        self.uno('#comparar').click()
        navegador.back()
        self.esperar(lambda: self.precio('#respuesta-b') == '1,57')
        navegador.back()
        navegador.back()
        self.esperar(lambda: navegador.current_url == antes and not self.todos('#respuesta-b'))
        self.assertEqual('1,95', self.precio())

    def test_los_textos_hostiles_se_ven_como_son(self):
        self.ir(articulo=105, cliente=20, ver='historia.unidades.lista', b_articulo=105, b_cliente=1)
        self.assertEqual(HOSTIL, self.uno('.descripcion').text)
        self.assertIn(HOSTIL, self.uno('[name=articulo]').get_property('value'))
        self.assertIn(HOSTIL, navegador.title)
        self.uno('[name=cliente]').send_keys(Keys.CONTROL, 'a', Keys.NULL, 'onerror')
        self.assertIn(HOSTIL, self.esperar(lambda: self.todos('[role=option]'))[0].text)
        self.ir(articulo='<img src=x onerror="window.roto=1">', cliente=1)
        self.assertIn('<img', self.esperar(lambda: self.todos('.fallo'))[0].text)
        self.assertEqual('true', self.uno('[name=articulo]').get_attribute('aria-invalid'))
        self.assertFalse(navegador.execute_script('return window.roto || document.images.length'))

    def test_cabe_se_lee_y_se_imprime(self):
        for ancho in (360, 1280):
            for oscuro in (False, True):
                with self.subTest(ancho=ancho, oscuro=oscuro):
                    self.ver(ancho, oscuro)
                    self.ir(articulo=113, cliente=11, ver='historia.unidades.lista', b_articulo=111, b_cliente=6)
                    navegador.execute_script('document.querySelectorAll("details").forEach(d => d.open = true)')
                    self.assertLessEqual(navegador.execute_script('return document.documentElement.scrollWidth - innerWidth'), 0)
                    self.assertEqual([], navegador.execute_script(CONTRASTE))
        self.ir(articulo=113, cliente=11, ver='historia')
        self.assertEqual(1, len(re.findall(rb'/Type\s*/Page\b', b64decode(navegador.print_page()))))

    def test_no_se_pide_nada_fuera(self):
        self.ir(articulo=113, cliente=11, ver='historia.unidades')
        pedidos = navegador.execute_script('return performance.getEntriesByType("resource").map(r => r.name)')
        self.assertEqual([], [p for p in pedidos if not p.startswith((SITIO, 'data:'))])
        self.assertLess(len(pedidos), 60)

    def test_la_lista_crece_y_se_baja(self):
        self.ir(cliente=6, articulo=111, ver='lista', listaDe='1')
        filas = lambda: len(self.todos('#lista tbody tr'))
        primeras = filas()
        self.esperar(lambda: filas() > primeras > 0 or navegador.execute_script('scrollTo(0, document.body.scrollHeight)'))
        self.uno('#lista a').click()
        bajado = self.esperar(lambda: [f for f in BAJADAS.glob('*.csv') if f.stat().st_size])[0].read_text('utf-8')
        self.assertEqual(kv('lista', '--csv-excel', '--con-coste', '--hoy', HOY, '--familias', 1, '--clientes', 6), bajado)
        visto = navegador.execute_script('return [...document.querySelectorAll("#lista tbody tr")].map(f => [...f.cells].map(c => c.textContent))')
        for codigo, _, precio, descuento, neto, _ in visto[::10]:
            documento = cargar({'articulo': codigo, 'cliente': '6'})
            for clave, texto in (('precio', precio), ('descuento', descuento), ('neto', neto)):
                self.assertTrue(vale(texto, documento[clave]), (codigo, clave, texto))


def fotografiar(pagina, carpeta):
    for nombre, ancho, oscuro, pregunta in (
            ('simulador-1280-claro', 1280, False, dict(articulo=113, cliente=11)),
            ('simulador-360-oscuro', 360, True, dict(articulo=106, cliente=6, unidades=5))):
        pagina.ver(ancho, oscuro)
        pagina.ir(**pregunta)
        navegador.execute_script('document.activeElement.blur()')
        pagina.ver(ancho, oscuro, navegador.execute_script('return document.documentElement.scrollHeight'))
        navegador.save_screenshot(f'{carpeta}/{nombre}.png')


def abrir_navegador():
    opciones = webdriver.ChromeOptions()
    for opcion in (*OPCIONES, f'--user-data-dir={CARPETA}/perfil', '--lang=es'):
        opciones.add_argument(opcion)
    opciones.add_experimental_option('prefs', {'download.default_directory': str(BAJADAS)})
    return webdriver.Chrome(options=opciones, service=Service('/usr/bin/chromedriver'))


with tempfile.TemporaryDirectory() as CARPETA:
    PROGRAMA, BASE, BAJADAS = sys.argv[1], Path(CARPETA, 'tienda.kv'), Path(CARPETA, 'bajadas')
    SEMILLA = int(os.environ.get('KV_SEMILLA', random.randrange(10**6)))
    print('KV_SEMILLA =', SEMILLA)
    BAJADAS.mkdir()
    kv('crear-demo', BASE, '--hoy', HOY)
    with sqlite3.connect(BASE) as conexion:
        conexion.execute('UPDATE Articulos SET Descripcion = ? WHERE Codigo = 105', (HOSTIL,))
        conexion.execute('UPDATE Clientes SET Nombre = ? WHERE Codigo = 20', (HOSTIL,))
    servidor = subprocess.Popen([PROGRAMA, 'servir', '--base', BASE, '--hoy', HOY, '--puerto', '0', '--con-coste'], stdout=subprocess.PIPE, text=True)
    navegador = None
    try:
        SITIO = re.search(r'http://\S+', servidor.stdout.readline())[0]
        navegador = abrir_navegador()
        if len(sys.argv) > 2:
            pagina = Pagina()
            pagina.setUp()
            fotografiar(pagina, sys.argv[2])
        else:
            unittest.main(argv=sys.argv[:1], verbosity=2)
    finally:
        if navegador:
            navegador.quit()
        servidor.terminate()
        servidor.wait()
