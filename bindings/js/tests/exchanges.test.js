// Every sample exchange through Transaction.
import assert from "node:assert/strict";
import test from "node:test";

import { Transaction, VantroError } from "./library.js";
import { exchanges, stepsOf } from "./samples.js";

function raised(call) {
    try {
        call();
    } catch (error) {
        assert.ok(error instanceof VantroError, String(error));
        return error.number;
    }
    return undefined;
}

/** Runs the steps of an exchange, with one object per class. */
class Player {
    #objects = new Map();
    #previous;

    play(step) {
        if (!this.#objects.has(step.className)) this.#objects.set(step.className, new Transaction(step.className));
        const transaction = this.#objects.get(step.className);
        const reported = [];
        const note = () => reported.push(...transaction.reported.map((error) => error.number));

        if (step.command !== undefined) {
            assert.equal(transaction.createCommand(step.params), step.command);
            note();
        }
        if (step["command raises"] !== undefined) {
            assert.equal(raised(() => transaction.createCommand(step.params)), step["command raises"]);
            note();
        }
        if (step.count !== undefined) {
            assert.equal(transaction.count("RecLocCount", step.screen), step.count);
            note();
        }
        if (step.screen !== undefined) {
            this.#verify(transaction, step);
            note();
        }
        assert.deepEqual(reported, step.reported);
    }

    #verify(transaction, step) {
        const state = step.statePrevious ? this.#previous : step.params;
        const before = structuredClone(state);
        if (step["results raises"] !== undefined) {
            assert.equal(raised(() => transaction.verifyResponse(step.screen, state)), step["results raises"]);
            return;
        }
        const results = transaction.verifyResponse(step.screen, state);
        assert.deepEqual(state, before);
        assert.deepEqual(results, step.results);
        if (results === null) return;
        assert.deepEqual(Object.keys(results), Object.keys(step.results));
        this.#previous = results;
    }
}

test("there are samples", () => assert.ok(exchanges.length > 80));

for (const name of exchanges) {
    test(`exchange ${name}`, () => {
        const player = new Player();
        for (const step of stepsOf(name)) player.play(step);
    });
}
