// A situation: the question's fields and, below, its answer.

import {Buscador} from './buscador.js';
import {cantidad, contar, crear, dia, Fallo, importe, preguntar, turno} from './comun.js';
import {respuestaDe} from './respuesta.js';

/** The inputs of a question, as the address and the program call them. */
export const ENTRADAS = ['empresa', 'articulo', 'cliente', 'fecha', 'tarifa', 'almacen', 'unidades', 'cualidadX', 'cualidadY', 'decimales'];
const ESCRITAS = ['unidades', 'cualidadX', 'cualidadY', 'fecha'];
const ESPERA = 250;

export class Situacion {
    /** `alCambiar(seguida)` hears of every change of an input; `seguida` while one goes on writing in the same field. */
    constructor(id, titulo, sesion, alCambiar) {
        this.sesion = sesion;
        this.alCambiar = alCambiar;
        this.seccion = document.getElementById('situacion').content.firstElementChild.cloneNode(true);
        this.seccion.querySelector('h2').textContent = titulo;
        this.formulario = this.seccion.querySelector('form');
        this.caja = this.seccion.querySelector('.respuesta');
        this.voz = this.seccion.querySelector('[role=status]');
        this.caja.id = id;
        this.turno = turno();
        this.valores = {};
        const empresa = () => this.valores.empresa;
        this.buscadores = {};
        for (const caja of this.formulario.querySelectorAll('.busca')) {
            const nombre = caja.querySelector('input').name;
            this.buscadores[nombre] = new Buscador(caja, `${id}-${nombre}`, empresa, () => this.#cambiar(nombre));
        }
        for (const nombre of ['cualidadX', 'cualidadY']) {
            const lista = crear('datalist', {id: `${id}-${nombre}`});
            this.formulario.append(lista);
            this.#campo(nombre).setAttribute('list', lista.id);
        }
        this.#escuchar();
        this.#ofrecer('decimales', [['', 'de la empresa'], ...[0, 1, 2, 3, 4].map(n => [n, n])]);
    }

    /** The question, without the inputs that were left to the program. */
    pregunta() {
        return Object.fromEntries(ENTRADAS.map(nombre => [nombre, this.valores[nombre]]).filter(([, valor]) => valor !== ''));
    }

    /** Takes the inputs from an address; those that it does not say are as in the beginning. */
    poner(valores) {
        const iniciales = {empresa: this.sesion.empresa, fecha: this.sesion.hoy, almacen: 1, unidades: 1};
        for (const nombre of ENTRADAS) {
            const valor = String(valores[nombre] ?? iniciales[nombre] ?? '');
            this.valores[nombre] = valor;
            if (this.buscadores[nombre]) this.buscadores[nombre].poner(valor);
            else this.#mostrar(nombre);
        }
    }

    /** Asks and shows the answer; `documento` is null when there is none. */
    responder() {
        return this.turno(async senal => {
            this.caja.setAttribute('aria-busy', 'true');
            try {
                await this.#listas(senal);
                this.#nombres(senal);
                this.documento = this.valores.articulo && this.valores.cliente ? await preguntar('cargar', this.pregunta(), senal) : null;
                this.#marcar('');
                this.#resumir();
                this.caja.replaceChildren(...this.documento ? respuestaDe(this.documento, this.#almacen()) : [this.#invitacion()]);
            } catch (error) {
                if (!(error instanceof Fallo)) throw error;
                this.documento = null;
                this.#marcar(error.campo);
                this.caja.replaceChildren(crear('p', {class: 'fallo', id: `${this.caja.id}-fallo`}, error.message));
            }
            this.voz.textContent = this.#dicho();
            this.caja.setAttribute('aria-busy', 'false');
        });
    }

    /** The question in one line, for paper and for titles. */
    enUnaLinea() {
        const v = this.valores, elegido = nombre => this.#campo(nombre).selectedOptions[0]?.textContent ?? '';
        const articulo = this.documento ? `${v.articulo} ${this.documento.descripcion}` : v.articulo;
        return [`Artículo ${articulo}`, `cliente ${v.cliente} ${this.buscadores.cliente.nombre}`.trim(), v.fecha && dia(v.fecha), `tarifa: ${elegido('tarifa')}`,
            `almacén ${elegido('almacen')}`, `unidades ${v.unidades || 1}`, v.cualidadX > 0 || v.cualidadY > 0 ? `variante ${v.cualidadX || 0}/${v.cualidadY || 0}` : '',
            v.decimales ? `${v.decimales} decimales` : '', `empresa ${elegido('empresa')}`].filter(Boolean).join(' · ');
    }

    #campo(nombre) {
        return this.formulario.elements[nombre];
    }

    #almacen() {
        return this.#campo('almacen').selectedOptions[0]?.textContent ?? '';
    }

    #escuchar() {
        this.formulario.addEventListener('submit', evento => evento.preventDefault());
        this.formulario.addEventListener('change', ({target}) => {
            if (target.tagName === 'SELECT') this.#cambiar(target.name);
        });
        for (const nombre of ESCRITAS) {
            const campo = this.#campo(nombre);
            campo.addEventListener('focus', () => this.seguida = false);
            campo.addEventListener('input', () => {
                clearTimeout(this.reloj);
                this.reloj = setTimeout(() => this.#cambiar(nombre), ESPERA);
            });
        }
    }

    #cambiar(nombre) {
        const valor = this.buscadores[nombre]?.codigo ?? this.#campo(nombre).value.trim();
        if (valor === this.valores[nombre]) return;
        this.valores[nombre] = valor;
        this.alCambiar(ESCRITAS.includes(nombre) && this.seguida);
        this.seguida = true;
    }

    #mostrar(nombre) {
        const campo = this.#campo(nombre), valor = this.valores[nombre];
        if (campo === document.activeElement && campo.value.trim() === valor) return;
        if (campo.tagName === 'SELECT' && valor !== undefined && ![...campo.options].some(opcion => opcion.value === valor))
            campo.append(crear('option', {value: valor}, valor));
        campo.value = valor;
    }

    #ofrecer(nombre, opciones) {
        this.#campo(nombre).replaceChildren(...opciones.map(([valor, rotulo]) => crear('option', {value: String(valor)}, String(rotulo))));
        if (nombre in this.valores) this.#mostrar(nombre);
    }

    // What can be chosen goes with the company, and the variants with the article.
    async #listas(senal) {
        const {empresa, articulo, almacen} = this.valores;
        if (empresa !== this.deEmpresa) {
            const limite = this.sesion.limiteHallados;
            const [empresas, tarifas, almacenes] = await Promise.all([
                preguntar('empresas', {limite}, senal), preguntar('tarifas', {empresa, limite}, senal), preguntar('almacenes', {empresa, limite}, senal)]);
            this.#ofrecer('empresa', empresas.empresas.map(e => [e.codigo, `${e.codigo} ${e.nombre}`]));
            this.#ofrecer('tarifa', [['', 'de la empresa'], ['0', 'ninguna: la del cliente'],
                ...tarifas.tarifas.map(t => [t.codigo, `${t.codigo} ${t.descripcion}`]), ...this.sesion.conCoste ? [['-1', 'venta a coste']] : []]);
            this.#ofrecer('almacen', almacenes.almacenes.map(a => [a.codigo, `${a.codigo} ${a.nombre}`]));
            this.deEmpresa = empresa;
        }
        const deQue = `${empresa}/${articulo}/${almacen}`;
        if (deQue !== this.deVariantes) this.#variantes(deQue, senal);
    }

    async #variantes(deQue, senal) {
        const {empresa, articulo, almacen} = this.valores;
        const hay = articulo ? await preguntar('existencias', {empresa, articulo}, senal).catch(() => null) : null;
        if (senal.aborted) return;
        this.deVariantes = deQue;
        for (const nombre of ['cualidadX', 'cualidadY']) {
            const suma = new Map();
            for (const v of hay?.variantes ?? [])
                if (String(v.almacen) === almacen) suma.set(v[nombre], (suma.get(v[nombre]) ?? 0) + v.existencias);
            this.#campo(nombre).list.replaceChildren(...[...suma].map(([valor, n]) => crear('option', {value: valor}, contar(n, 'unidad', 'unidades'))));
        }
    }

    #nombres(senal) {
        for (const buscador of Object.values(this.buscadores)) buscador.nombrar(senal).then(() => this.#resumir());
    }

    #resumir() {
        this.seccion.querySelector('.resumen').textContent = this.enUnaLinea();
    }

    #marcar(culpable) {
        for (const nombre of ENTRADAS) {
            const campo = this.#campo(nombre);
            campo.toggleAttribute('aria-invalid', nombre === culpable);
            if (nombre === culpable) campo.setAttribute('aria-invalid', 'true'), campo.setAttribute('aria-describedby', `${this.caja.id}-fallo`);
            else campo.removeAttribute('aria-describedby');
        }
    }

    #invitacion() {
        return crear('p', {class: 'vacio'}, this.valores.articulo ? 'Elija un cliente: escriba su código o parte de su nombre.' : 'Elija un artículo: escriba su código o algunas palabras.');
    }

    #dicho() {
        const d = this.documento;
        if (!d) return this.caja.textContent;
        const descuento = d.descuento ? `, descuento ${cantidad(d.descuento)} %, neto ${importe(d.neto)}` : '';
        return `${d.descripcion}: ${d.precio ? `precio ${importe(d.precio)}` : 'sin precio'}${descuento}; ${d.estado}`;
    }
}
