// Lint rules for the page's script and these tests.
import js from '@eslint/js';
import html from 'eslint-plugin-html';
import globals from 'globals';

// Globals of the page, used by functions that tests run in the browser.
const pageNames = ['act', 'all', 'busy', 'byId', 'connected', 'controlDirty', 'controlInvalid', 'controlPending',
  'controlSaving', 'durationDirty', 'firstState', 'openTab', 'poll', 'recordingKey', 'say'];

export default [
  js.configs.recommended,
  { linterOptions: { reportUnusedDisableDirectives: 'error' } },
  {
    files: ['**/*.html'],
    plugins: { html },
    languageOptions: { sourceType: 'script', globals: globals.browser },
  },
  {
    files: ['**/*.js'],
    languageOptions: {
      globals: {
        ...globals.node, ...globals.browser,
        ...Object.fromEntries(pageNames.map((name) => [name, 'readonly'])),
      },
    },
  },
];
