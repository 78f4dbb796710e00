// The page and the wire tests, on the real program under Wine.
import { anyService } from '../any_service.js';
import { Program } from '../program.js';
import { wireTests } from '../wire.js';

const start = () => new Program().start();

anyService(start);
wireTests(start);
